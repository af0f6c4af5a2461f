// The extension module tavik_agent.material_characterization: its functions and its life.
#include <Python.h>

#include "bindings/docstrings.hpp"
#include "bindings/entry.hpp"
#include "bindings/load.hpp"

namespace tavik::bindings {
namespace {

namespace rules = characterization;

struct State {
  Module* module;  ///< none before the module is loaded
};

/// No state before the module is executed.
State* raw_state(PyObject* module) { return static_cast<State*>(PyModule_GetState(module)); }

template <class Entry>
PyMethodDef describe(const char* name, Entry entry, const char* docstring) noexcept {
  return {name, _PyCFunction_CAST(entry), METH_FASTCALL | METH_KEYWORDS, docstring};
}

#define TAVIK_FUNCTION(name) describe(#name, enter<rules::name, docstrings::name>, docstrings::name)
#define TAVIK_FUNCTION_OF_ANY_NUMBER(name) \
  describe(#name, enter_any_number<rules::name, docstrings::name>, docstrings::name)

int load(PyObject* module) noexcept {
  return guarded(
      [&] {
        Value names = Value::borrow(PyModule_GetDict(module));
        fill_namespace(names);
        raw_state(module)->module = new Module(std::move(names));
        return 0;
      },
      -1);
}

int traverse(PyObject* module, visitproc visit, void* arg) {
  Module* const held = raw_state(module)->module;
  if (held == nullptr) return 0;
  return held->for_each_held([&](Value& value) { return visit(value.get(), arg); });
}

int clear(PyObject* module) {
  Module* const held = raw_state(module)->module;
  if (held == nullptr) return 0;
  return held->for_each_held([](Value& value) {
    value = Value();
    return 0;
  });
}

void unload(void* module) { delete raw_state(static_cast<PyObject*>(module))->module; }

// The host keeps pointers into these tables and never changes them.
PyMethodDef functions[] = {
    TAVIK_FUNCTION_OF_ANY_NUMBER(_combined_text),
    TAVIK_FUNCTION(_species_from_element_block),
    TAVIK_FUNCTION(_formula_parts),
    TAVIK_FUNCTION(_species_from_text),
    TAVIK_FUNCTION(_formula_hint),
    TAVIK_FUNCTION(_structure_mode),
    TAVIK_FUNCTION(_structure_archetype),
    TAVIK_FUNCTION(classify_system_class),
    TAVIK_FUNCTION(_electronic_class),
    TAVIK_FUNCTION(_correlation_class),
    TAVIK_FUNCTION(_magnetic_class),
    TAVIK_FUNCTION(_material_family),
    TAVIK_FUNCTION(characterize_material),
    {nullptr, nullptr, 0, nullptr},
};

PyModuleDef_Slot slots[] = {
    {Py_mod_exec, reinterpret_cast<void*>(load)},
    // All state belongs to one module object and is only read after loading.
    {Py_mod_multiple_interpreters, Py_MOD_PER_INTERPRETER_GIL_SUPPORTED},
    {Py_mod_gil, Py_MOD_GIL_NOT_USED},
    {0, nullptr},
};

PyModuleDef definition = {
    .m_base = PyModuleDef_HEAD_INIT,
    .m_name = "material_characterization",
    .m_doc = docstrings::module,
    .m_size = sizeof(State),
    .m_methods = functions,
    .m_slots = slots,
    .m_traverse = traverse,
    .m_clear = clear,
    .m_free = unload,
};

}  // namespace

Module& state_of(PyObject* module) {
  const State* const state = raw_state(module);
  if (state == nullptr || state->module == nullptr || !state->module->is_live()) {
    host::raise(PyExc_RuntimeError, "material_characterization is not loaded");
  }
  return *state->module;
}

}  // namespace tavik::bindings

PyMODINIT_FUNC PyInit_material_characterization() {
  return PyModuleDef_Init(&tavik::bindings::definition);
}
