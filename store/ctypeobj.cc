// Types find their members along the chain of parents.
#include "store/ctypeobj.h"

#include "store/ghash.h"

bool cExeFunction::pexecute(cObj & object) {
  cRef<cObj> none;
  return pexecute(object, none);
}

bool cExeFunction::pexecute(cObj & object, cRef<cObj> & argument) {
  return function_ && function_(object, argument);
}

cTypeObj::cTypeObj(char const * name, void (*init)(cTypeObj &)) : cTypeObj(nullptr, name, init) {}

cTypeObj::cTypeObj(cTypeObj * parent, char const * name, void (*init)(cTypeObj &))
    : name_(name),
      parent_(parent) {
  if (init)
    init(*this);
}

bool cTypeObj::is_a(cTypeObj const & other) const {
  for (cTypeObj const * type = this; type; type = type->parent_)
    if (type == &other)
      return true;
  return false;
}

void cTypeObj::set_tmember(std::string const & method, cRef<cObj> function) {
  members_[method] = std::move(function);
}

cRef<cObj> cTypeObj::tmember(std::string const & method) const {
  for (cTypeObj const * type = this; type; type = type->parent_) {
    auto const it = type->members_.find(method);
    if (it != type->members_.end())
      return it->second;
  }
  return nullptr;
}

cMapObj & cTypeObj::choices() {
  if (!choices_)
    choices_ = make_ref<cMapObj>();
  return *choices_;
}

std::uint32_t cTypeObj::hashfun(cRef<cObj> const & key) const {
  return chash_fun<std::string>()(cat::as_string(key));
}

bool cTypeObj::hasheq(cRef<cObj> const & a, cRef<cObj> const & b) const {
  return a && b ? a->equal(*b) : a == b;
}

bool cTypeObj::pexec(method_id, cObj & object) const {
  cRef<cObj> const member = tmember("create");
  auto * exe = dynamic_cast<cExeObj *>(member.get());
  return exe && exe->pexecute(object);
}

cTypeModifier::cTypeModifier(cTypeObj & type, std::string const & name, cRef<cObj> member)
    : type_(type),
      name_(name),
      before_(type.tmember(name)) {
  type.set_tmember(name, std::move(member));
}

cTypeModifier::~cTypeModifier() {
  type_.remove_tmember(name_);
  if (before_ && type_.tmember(name_) != before_)
    type_.set_tmember(name_, before_);
}

cRef<cObj> cTomMap::getattr(cRef<cObj> const & map, cRef<cObj> const & key) {
  return map ? map->getattr(key) : nullptr;
}

cRef<cObj> cTomMap::getattr_insert(cRef<cObj> const & map, cRef<cObj> const & key) {
  if (!map || !map->map())
    return nullptr;
  return cRef<cObj>::share(&*(*map)[key]);
}

bool cTomMap::equal_sorted(cObj & map, cRef<cObj> & other) {
  cMapObj const * const a = map.map();
  cMapObj const * const b = other ? other->map() : nullptr;
  if (!a || !b || a->entries().size() != b->entries().size())
    return false;
  for (int i = 0; i < a->entries().size(); ++i)
    if (!a->entries().node(i).value->equal(*b->entries().node(i).value))
      return false;
  return true;
}

namespace cat {

cRef<cObj> new_of(cTypeObj const & type) {
  cObj * object = nullptr;
  if (&type == &type_bool())
    object = new cObjD<bool>;
  else if (&type == &type_int())
    object = new cObjD<int>;
  else if (&type == &type_string())
    object = new cObjD<std::string>;
  else if (&type == &type_strlist())
    object = new cObjD<gStrList>;
  else if (&type == &type_cppmacro())
    object = new cObjD<gCppMacro>;
  else if (&type == &type_map())
    object = new cMapObj;
  else if (&type == &type_vector())
    object = new cVectorObj;
  else
    object = new cNilObj;
  return cRef<cObj>(object->create());
}

} // namespace cat
