#include "store/json_text.h"

#include "store/ctypeobj.h"
#include "store/json_bytes.h"
#include "store/json_form.h"

std::string to_json(cObj const & object, bool pretty) {
  std::string text;
  write_json(object, cJsonForm::plain, pretty, text);
  return text;
}

namespace {

// {"$bytes": ".."}, as to_json writes it, is a text.
cRef<cObj> plain_bytes(cRef<cObj> const & value) {
  cRef<cObj> const inner = value->size() == 1 ? value->at("$bytes") : nullptr;
  std::string const * text = inner ? cat::value_of<std::string>(*inner) : nullptr;
  std::string bytes;
  return text && utf8_to_bytes(*text, bytes) ? cat::make(bytes) : nullptr;
}

// A key of bytes is written as "$b:" and its bytes as characters.
std::string plain_key(std::string const & key) {
  std::string bytes;
  bool const of_bytes = key.starts_with("$b:") && utf8_to_bytes(key.substr(3), bytes);
  return of_bytes ? bytes : key;
}

bool shape_map(cObj const & value, cObj const & like, cRef<cObj> & out, std::string & reason) {
  auto result = make_ref<cMapObj>();
  for (cIterObj it = value.begin(); it.valid(); it++) {
    std::string const key = plain_key(it.key_as_string());
    cRef<cObj> const known = like.at(key);
    cRef<cObj> const sibling = known ? known : like.at("*");
    if (!sibling && like.size() > 0) {
      reason = "unknown key \"" + key + "\"";
      return false;
    }
    cRef<cObj> shaped;
    if (!shape_like(it.valref(), sibling, shaped, reason))
      return false;
    result->set(key, shaped);
  }
  out = result;
  return true;
}

bool shape_vector(cObj const & value, cObj const & like, cRef<cObj> & out, std::string & reason) {
  auto result = make_ref<cVectorObj>();
  for (cIterObj it = value.begin(); it.valid(); it++) {
    cRef<cObj> shaped;
    if (!shape_like(it.valref(), like.at(0), shaped, reason))
      return false;
    result->append(shaped);
  }
  out = result;
  return true;
}

bool is_number(std::string const & text) {
  cJsonResult const json = read_json(text, cJsonForm::plain);
  bool const digit = text.find_first_not_of("+-.0123456789eE \t\r\n") == text.npos;
  return json.value ? cat::value_of<int>(*json.value) != nullptr
                    : digit && json.reason.starts_with("the number");
}

std::string trimmed(std::string const & text) {
  gString result(text);
  result.wsp_rmleft().wsp_rmright();
  return result;
}

} // namespace

bool shape_like(cRef<cObj> const & value, cRef<cObj> const & like, cRef<cObj> & out,
                std::string & reason) {
  cRef<cObj> const bytes = plain_bytes(value);
  cRef<cObj> const from = bytes ? bytes : value;
  if (!like) {
    out = from;
    return true;
  }
  bool const same = &from->type() == &like->type();
  if (same && &like->type() == &cat::type_map())
    return shape_map(*from, *like, out, reason);
  if (same && &like->type() == &cat::type_vector())
    return shape_vector(*from, *like, out, reason);
  // The store turns true into 1, which nobody means who writes it.
  bool const flag_for_number =
      &from->type() == &cat::type_bool() && &like->type() == &cat::type_int();
  cRef<cObj> const shaped = cat::new_of(like->type());
  if (flag_for_number || shaped->map() || !shaped->convert(*from)) {
    reason = "a value of the type " + from->type().name() + " where " + like->type().name() +
             " is wanted";
    return false;
  }
  out = shaped;
  return true;
}

bool from_json(std::string const & text, cRef<cObj> const & like, cRef<cObj> & out,
               std::string & reason) {
  bool const wants_text =
      like && (&like->type() == &cat::type_string() || &like->type() == &cat::type_strlist());
  if (wants_text && is_number(text))
    return shape_like(cat::make(trimmed(text)), like, out, reason);
  cJsonResult const json = read_json(text, cJsonForm::plain);
  if (shape_like(json.value ? json.value : cat::make(text), like, out, reason))
    return true;
  if (!json.value && is_number(text)) {
    reason = json.reason;
    return false;
  }
  bool const meant_as_json = trimmed(text).find_first_of("{[\"") == 0;
  if (!json.value && meant_as_json)
    reason += " (read as JSON: " + json.reason + ")";
  return false;
}
