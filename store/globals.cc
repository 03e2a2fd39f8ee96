// Everything in the store that lives as long as the program, in one place. The objects are made
// at first use and never destroyed, so that statics of any file may use them.
#include <map>

#include "store/cerr.h"
#include "store/cfactory.h"
#include "store/cppmacro_type.h"
#include "store/ctypeobj.h"
#include "store/gglobalobj.h"

std::atomic<int> cObjBase::ob_count{0};

gGlobalObjects & Global::objects() {
  static auto & list = *new gGlobalObjects;
  return list;
}

cErrStream & eros() {
  static auto & stream = *new cErrStream;
  return stream;
}

cRepositoryList & cRepoImpl::get(std::type_index base_type) {
  static auto & lists = *new std::map<std::type_index, cRepositoryList>;
  return lists[base_type];
}

namespace cat {

cSignal1<cErr &> & sig_error() {
  static auto & signal = *new cSignal1<cErr &>;
  return signal;
}

cTypeObj & type_nil() {
  static auto & type = *new cTypeObj("nil", nullptr);
  return type;
}
cTypeObj & type_bool() {
  static auto & type = *new cTypeObj("bool", nullptr);
  return type;
}
cTypeObj & type_int() {
  static auto & type = *new cTypeObj("int", nullptr);
  return type;
}
cTypeObj & type_string() {
  static auto & type = *new cTypeObj("string", nullptr);
  return type;
}
cTypeObj & type_strlist() {
  static auto & type = *new cTypeObj("gStrList", nullptr);
  return type;
}
cTypeObj & type_cppmacro() {
  static auto & type = *new cTypeObj("cppmacro", init_cppmacro_type);
  return type;
}
cTypeObj & type_map() {
  static auto & type = *new cTypeObj("map", nullptr);
  return type;
}
cTypeObj & type_vector() {
  static auto & type = *new cTypeObj(&type_map(), "vector", nullptr);
  return type;
}
cTypeObj & type_set() {
  static auto & type = *new cTypeObj(&type_map(), "set", nullptr);
  return type;
}
cTypeObj & typetype_choice() {
  static auto & type = *new cTypeObj("choice", nullptr);
  return type;
}

namespace {

using TypeTable = std::map<std::string, cTypeObj *, std::less<>>;

TypeTable & types() {
  static auto & table = *new TypeTable{
      {"nil", &type_nil()},           {"bool", &type_bool()}, {"int", &type_int()},
      {"string", &type_string()},     {"map", &type_map()},   {"vector", &type_vector()},
      {"gStrList", &type_strlist()},  {"set", &type_set()},   {"cppmacro", &type_cppmacro()},
      {"choice", &typetype_choice()},
  };
  return table;
}

} // namespace

cTypeObj * find_type(std::string const & name) {
  auto const it = types().find(name);
  return it == types().end() ? nullptr : it->second;
}

} // namespace cat

cTypeInsert::cTypeInsert(cTypeObj & type)
    : type_(type),
      entered_(cat::types().emplace(type.name(), &type).second) {}

cTypeInsert::~cTypeInsert() {
  if (entered_)
    cat::types().erase(type_.name());
}
