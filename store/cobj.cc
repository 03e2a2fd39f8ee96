// What all values share: access to entries, creation, and the readers of the namespace cat.
#include "store/cmapobj.h"
#include "store/ctypeobj.h"

void cObjBase::obid(unsigned id) {
  ob_count += (id ? 1 : 0) - (id_ ? 1 : 0);
  id_ = id;
}

cAttr cObj::operator[](char const * key) {
  return cAttr(*this, cKey(std::string_view(key)));
}
cAttr cObj::operator[](std::string const & key) {
  return cAttr(*this, cKey(key));
}
cAttr cObj::operator[](cRef<cObj> const & key) {
  return cAttr(*this, cat::key_of(key));
}
cAttr cObj::operator[](int key) {
  return cAttr(*this, cKey(key));
}

namespace {

cRef<cObj> value_at(cMapObj const * map, int position) {
  return map && position >= 0 ? map->entries().node(position).value : nullptr;
}

} // namespace

cRef<cObj> cObj::at(std::string_view key) const {
  return map() ? value_at(map(), map()->entries().find(key)) : nullptr;
}

cRef<cObj> cObj::at(int key) const {
  return map() ? value_at(map(), map()->entries().find(key)) : nullptr;
}

cRef<cObj> cObj::getattr(cRef<cObj> const & key) const {
  return map() ? value_at(map(), map()->entries().find(cat::key_of(key))) : nullptr;
}

cIterObj cObj::begin() const {
  return cIterObj(map());
}
cIterObj cObj::end() const {
  return cIterObj(map(), size());
}
int cObj::size() const {
  return map() ? map()->entries().size() : 0;
}

bool cObj::append(cRef<cObj> const & value) {
  cMapObj * container = map();
  if (container)
    container->entries().node(container->entries().append()).value =
        value ? value : cat::make_nil();
  return container != nullptr;
}

bool cObj::erase(std::string_view key) {
  return map() && map()->erase(key);
}

cObj * cObj::create() {
  if (type_ != &cat::type_nil())
    type_->pexec(cTypeObj::method_create, *this);
  return this;
}

cRef<cObj> cObj::call(std::string const & method) {
  cRef<cObj> const member = type_->tmember(method);
  auto * exe = dynamic_cast<cExeObj *>(member.get());
  if (!exe)
    return nullptr;
  cRef<cObj> result;
  exe->pexecute(*this, result);
  return result;
}

namespace cat {

cRef<cObj> make(bool value) {
  return make_ref<cObjD<bool>>(value);
}
cRef<cObj> make(int value) {
  return make_ref<cObjD<int>>(value);
}
cRef<cObj> make(std::string const & value) {
  return make_ref<cObjD<std::string>>(value);
}
cRef<cObj> make(std::string_view value) {
  return make(std::string(value));
}
cRef<cObj> make(char const * value) {
  return make(std::string(value));
}
cRef<cObj> make(gStrList const & value) {
  return make_ref<cObjD<gStrList>>(value);
}
cRef<cObj> make(gCppMacro const & value) {
  return make_ref<cObjD<gCppMacro>>(value);
}
cRef<cObj> make_nil() {
  return make_ref<cNilObj>();
}

cKey key_of(cRef<cObj> const & key) {
  if (int const * number = key ? value_of<int>(*key) : nullptr)
    return cKey(*number);
  return cKey(as_string(key));
}

int as_index(cRef<cObj> const & key) {
  int index = -1;
  return read(key, index) ? index : -1;
}

std::string as_string(cRef<cObj> const & object) {
  std::string text;
  read(object, text);
  return text;
}

bool is_ident(std::string const & text) {
  if (text.empty() || Vlb::is_digit(text[0]))
    return false;
  for (char c : text)
    if (!Vlb::is_word(c))
      return false;
  return true;
}

void wsp_normalize(std::string & text) {
  gString normalized(text);
  normalized.wsp_norm();
  text = std::move(normalized);
}

} // namespace cat
