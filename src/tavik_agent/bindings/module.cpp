// The extension module tavik_agent.material_characterization: its functions and its life.
#include <memory>

#include "bindings/entry.hpp"
#include "bindings/load.hpp"
#include "generated/functions.hpp"

namespace tavik::bindings {
namespace {

namespace rules = characterization;

struct Storage {
  ModuleState* state;  ///< none before the module is loaded, and none once Python clears it
};

Storage* storage_of(PyObject* module) { return static_cast<Storage*>(PyModule_GetState(module)); }

/// As Python stores a function of any kind; the flags of a method say which kind it is.
PyCFunction stored(PyCFunctionFastWithKeywords function) noexcept {
  return reinterpret_cast<PyCFunction>(reinterpret_cast<void (*)()>(function));
}

template <auto Function, const Signature& signature>
PyMethodDef method() noexcept {
  return {signature.name, stored(enter<Function, signature>), METH_FASTCALL | METH_KEYWORDS,
          signature.docstring};
}

#define TAVIK_FUNCTION(name) method<rules::name, signatures::name>()

int load(PyObject* module) noexcept {
  return guarded(
      [&] {
        Object names = Object::borrow(PyModule_GetDict(module));
        fill_namespace(names);
        storage_of(module)->state = new ModuleState(std::move(names));
        return 0;
      },
      -1);
}

int traverse(PyObject* module, visitproc visit, void* arg) noexcept {
  ModuleState* const held = storage_of(module)->state;
  if (held == nullptr) return 0;
  return held->for_each_held([&](Object& object) { return visit(object.get(), arg); });
}

int clear(PyObject* module) noexcept {
  // Letting go of an object can run Python code that calls the module: it finds it not loaded.
  const std::unique_ptr<ModuleState> held(std::exchange(storage_of(module)->state, nullptr));
  return 0;
}

void unload(void* module) noexcept { clear(static_cast<PyObject*>(module)); }

// Python keeps pointers into these tables and never changes them.
PyMethodDef functions[] = {
    TAVIK_FUNCTION(_combined_text),        TAVIK_FUNCTION(_species_from_element_block),
    TAVIK_FUNCTION(_formula_parts),        TAVIK_FUNCTION(_species_from_text),
    TAVIK_FUNCTION(_formula_hint),         TAVIK_FUNCTION(_structure_mode),
    TAVIK_FUNCTION(_structure_archetype),  TAVIK_FUNCTION(classify_system_class),
    TAVIK_FUNCTION(_electronic_class),     TAVIK_FUNCTION(_correlation_class),
    TAVIK_FUNCTION(_magnetic_class),       TAVIK_FUNCTION(_material_family),
    TAVIK_FUNCTION(characterize_material), {nullptr, nullptr, 0, nullptr},
};

PyModuleDef_Slot slots[] = {
    {Py_mod_exec, reinterpret_cast<void*>(load)},
    // All state belongs to one module object. After loading it is only read, but for two atomics:
    // the once-cell of the index, and the bits that tell which names were bound anew.
    {Py_mod_multiple_interpreters, Py_MOD_PER_INTERPRETER_GIL_SUPPORTED},
    {Py_mod_gil, Py_MOD_GIL_NOT_USED},
    {0, nullptr},
};

PyModuleDef definition = {
    .m_base = PyModuleDef_HEAD_INIT,
    .m_name = "material_characterization",
    .m_doc = signatures::module_docstring,
    .m_size = sizeof(Storage),
    .m_methods = functions,
    .m_slots = slots,
    .m_traverse = traverse,
    .m_clear = clear,
    .m_free = unload,
};

}  // namespace

const ModuleState& state_of(const Object& module) {
  const Storage* const storage = storage_of(module.get());
  if (storage == nullptr || storage->state == nullptr) {
    py::raise(PyExc_RuntimeError, "material_characterization is not loaded");
  }
  return *storage->state;
}

}  // namespace tavik::bindings

PyMODINIT_FUNC PyInit_material_characterization() {
  return PyModuleDef_Init(&tavik::bindings::definition);
}
