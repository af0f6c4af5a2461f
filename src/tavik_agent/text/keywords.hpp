// Every keyword group of the module, as rows of data. A classifier names a group and never a
// keyword, so a keyword is added, moved or removed here and nowhere else.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <limits>
#include <string_view>

#include "text/characters.hpp"

namespace tavik::text {

enum class Group : std::uint8_t {
  periodic_cell,
  // structure archetype
  stm,
  sample,
  tip,
  layered_parent,
  zincblende,
  graphene,
  hbn,
  tmd,
  phosphorene,
  mxene,
  two_dimensional,
  surface,
  slab_context,
  bulk_cue,
  vacuum,
  // electronic, correlation and magnetic class
  metallic,
  dft_plus_u,
  collinear,
  small_cell,
  noncollinear_or_spin_orbit,
  antiferromagnetic,
  alpha_manganese,
  // energy unit and spin mode
  electronvolt,
  hartree,
  noncollinear,
};

/// Which occurrences of a keyword count.
enum class Accepted : std::uint8_t {
  anywhere,      ///< inside words too
  whole_word,    ///< \bkeyword\b
  before_volts,  ///< \bkeyword[-\s]?volts?\b
  before_units,  ///< \bkeyword\s+units?\b
};
using enum Accepted;

struct Keyword {
  Group group;
  std::string_view text;
  Accepted accepted = anywhere;
};

// clang-format off
inline constexpr auto keywords = std::to_array<Keyword>({
    {Group::periodic_cell, "bulk"},
    {Group::periodic_cell, "crystal"},
    {Group::periodic_cell, "fcc"},
    {Group::periodic_cell, "bcc"},
    {Group::periodic_cell, "hcp"},
    {Group::periodic_cell, "supercell"},
    {Group::periodic_cell, "slab"},
    {Group::periodic_cell, "surface"},

    {Group::stm, "stm current"},
    {Group::stm, "scanning tunneling microscopy"},
    {Group::stm, "scanning tunnelling microscopy"},
    {Group::sample, "sample", whole_word},
    {Group::tip, "tip", whole_word},

    {Group::layered_parent, "exfoliat"},
    {Group::layered_parent, "layered parent"},
    {Group::layered_parent, "vdw parent"},
    {Group::layered_parent, "van der waals parent"},

    // "zinc blende" with a blank is a bulk cue only, see below.
    {Group::zincblende, "zincblende"},
    {Group::zincblende, "zinc-blende"},
    {Group::zincblende, "cubic boron nitride"},
    {Group::zincblende, "c-bn"},
    {Group::zincblende, "cubic bn"},

    {Group::graphene, "graphene"},

    {Group::hbn, "hbn"},
    {Group::hbn, "hexagonal boron nitride"},
    {Group::hbn, "boron nitride"},

    {Group::tmd, "mos2"},
    {Group::tmd, "ws2"},
    {Group::tmd, "molybdenum disulfide"},
    {Group::tmd, "molybdenum disulphide"},
    {Group::tmd, "tungsten disulfide"},
    {Group::tmd, "tungsten disulphide"},
    {Group::tmd, "transition metal dichalcogenide"},
    {Group::tmd, "tmd"},

    {Group::phosphorene, "black phosphorus"},
    {Group::phosphorene, "phosphorene"},

    {Group::mxene, "mxene"},

    {Group::two_dimensional, "monolayer"},
    {Group::two_dimensional, "2d"},
    {Group::two_dimensional, "2-d"},
    {Group::two_dimensional, "sheet"},
    {Group::two_dimensional, "nanoribbon"},

    {Group::surface, "surface"},
    {Group::surface, "slab"},

    {Group::slab_context, "vacuum padding"},
    {Group::slab_context, "vacuum spacing"},
    {Group::slab_context, "vacuum gap"},
    {Group::slab_context, "vacuum layer"},
    {Group::slab_context, "vacuum region"},
    {Group::slab_context, "add vacuum"},
    {Group::slab_context, "film"},
    {Group::slab_context, "adsorb"},
    {Group::slab_context, "interface"},
    {Group::slab_context, "termination"},

    {Group::bulk_cue, "bcc"},
    {Group::bulk_cue, "fcc"},
    {Group::bulk_cue, "hcp"},
    {Group::bulk_cue, "rocksalt"},
    {Group::bulk_cue, "rock salt"},
    {Group::bulk_cue, "zinc blende"},
    {Group::bulk_cue, "zincblende"},
    {Group::bulk_cue, "wurtzite"},
    {Group::bulk_cue, "diamond cubic"},
    {Group::bulk_cue, "bulk "},  // with its blank: not before a comma or at the end
    {Group::bulk_cue, "primitive cell"},
    {Group::bulk_cue, "conventional cell"},

    {Group::vacuum, "vacuum"},

    {Group::metallic, "metallic", whole_word},
    {Group::metallic, "metal", whole_word},

    {Group::dft_plus_u, "dft+u"},
    {Group::dft_plus_u, "lda+u"},
    {Group::dft_plus_u, "hubbard"},
    {Group::dft_plus_u, "correlated"},

    {Group::collinear, "collinear"},

    {Group::small_cell, "primitive"},
    {Group::small_cell, "two-atom"},
    {Group::small_cell, "2-atom"},
    {Group::small_cell, "two atom"},
    {Group::small_cell, "fcc primitive"},

    {Group::noncollinear_or_spin_orbit, "non-collinear"},
    {Group::noncollinear_or_spin_orbit, "noncollinear"},
    {Group::noncollinear_or_spin_orbit, "spin-orbit"},
    {Group::noncollinear_or_spin_orbit, "spin orbit"},
    {Group::noncollinear_or_spin_orbit, "soc"},

    {Group::antiferromagnetic, "antiferrom"},
    {Group::antiferromagnetic, "ferrimag"},
    {Group::antiferromagnetic, "afm"},
    {Group::antiferromagnetic, "ferri"},

    {Group::alpha_manganese, "alpha-mn"},
    {Group::alpha_manganese, "alpha mn"},
    {Group::alpha_manganese, "alpha manganese"},

    {Group::electronvolt, "ev", whole_word},
    {Group::electronvolt, "electron", before_volts},

    {Group::hartree, "ha", whole_word},
    {Group::hartree, "hartree", whole_word},
    {Group::hartree, "hartrees", whole_word},
    {Group::hartree, "atomic", before_units},
    {Group::hartree, "a.u.", whole_word},  // its last boundary asks for a word character next

    {Group::noncollinear, "non-collinear"},
    {Group::noncollinear, "noncollinear"},
});
// clang-format on

/// How many groups there can be.
inline constexpr std::size_t most_groups = 64;

static_assert(std::ranges::all_of(keywords,
                                  [](auto& keyword) {
                                    return static_cast<std::size_t>(keyword.group) < most_groups;
                                  }),
              "what a text mentions is noted with a bit for each of 64 groups");
static_assert(keywords.size() <= std::numeric_limits<std::uint16_t>::max(),
              "the search numbers the keywords with 16 bits");
static_assert(std::ranges::all_of(keywords, [](auto& keyword) { return keyword.text.size() > 1; }),
              "a keyword has two letters at least: the search goes by the first two");
static_assert(std::ranges::all_of(keywords,
                                  [](auto& keyword) {
                                    return std::ranges::all_of(keyword.text, is_ascii);
                                  }),
              "a keyword is ASCII: its bytes are compared with those of UTF-8 text");
static_assert(std::ranges::none_of(keywords,
                                   [](auto& keyword) {
                                     return std::ranges::any_of(keyword.text, is_ascii_upper);
                                   }),
              "a keyword is in lower case: it is sought in lowered text");

}  // namespace tavik::text
