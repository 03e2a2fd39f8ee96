// Methods that make the one stored type of the application usable by name.
#include "store/cppmacro_type.h"

#include <sstream>

#include "store/cerr.h"
#include "store/ctypeobj.h"

namespace {

bool new_object(cObj &, cRef<cObj> & result) {
  result = cat::make(gCppMacro());
  return true;
}

bool new_reference(cObj & object, cRef<cObj> & result) {
  gCppMacro * macro = cat::value_of<gCppMacro>(object);
  if (macro)
    result = make_ref<cObjDR<gCppMacro>>(*macro);
  return macro != nullptr;
}

bool assign_macro(cObj & object, cRef<cObj> & other) {
  if (other && (object.assign(*other) || object.convert(*other)))
    return true;
  std::string const text = "Method 'assign', type '" + object.type().name() + "' from '" +
                           (other ? other->type().name() : "nil") + "'";
  eros() << text << std::endl;
  cat::publish_error(1, text);
  return false;
}

bool write_macro(cObj & object, cRef<cObj> & result) {
  gCppMacro const * macro = cat::value_of<gCppMacro>(object);
  std::ostringstream out;
  if (macro)
    out << *macro;
  result = cat::make(out.str());
  return macro && out.good();
}

bool read_macro(cObj & object, cRef<cObj> & text) {
  gCppMacro * macro = cat::value_of<gCppMacro>(object);
  std::istringstream in(cat::as_string(text));
  return macro && static_cast<bool>(in >> *macro);
}

bool macro_size(cObj &, cRef<cObj> & result) {
  result = cat::make(static_cast<int>(sizeof(gCppMacro)));
  return true;
}

bool equal_macro(cObj & object, cRef<cObj> & other) {
  return other && object.equal(*other);
}

} // namespace

void cat::init_cppmacro_type(cTypeObj & type) {
  type.set_tmember("newobj", make_ref<cExeFunction>(new_object));
  type.set_tmember("newref", make_ref<cExeFunction>(new_reference));
  type.set_tmember("assign", make_ref<cExeFunction>(assign_macro));
  type.set_tmember("write", make_ref<cExeFunction>(write_macro));
  type.set_tmember("read", make_ref<cExeFunction>(read_macro));
  type.set_tmember("size", make_ref<cExeFunction>(macro_size));
  type.set_tmember("equal", make_ref<cExeFunction>(equal_macro));
}
