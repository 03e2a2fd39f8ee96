// The library's parser sends events; a stack of open containers takes them. The typed forms of
// json_writer.cc are read as maps and vectors first, and turned into their value at their end.
#include <charconv>
#include <climits>
#include <nlohmann/json.hpp>

#include "store/cmapobj.h"
#include "store/json_bytes.h"
#include "store/json_form.h"

namespace {

// Goes over the text and tells the builder how far the parser has read.
class CountingIterator {
public:
  using iterator_category = std::forward_iterator_tag;
  using value_type = char;
  using difference_type = std::ptrdiff_t;
  using pointer = char const *;
  using reference = char const &;

  CountingIterator(char const * at, char const ** reached) : at_(at), reached_(reached) {}
  reference operator*() const { return *at_; }
  CountingIterator & operator++() {
    *reached_ = ++at_;
    return *this;
  }
  CountingIterator operator++(int) {
    CountingIterator before(*this);
    ++*this;
    return before;
  }
  bool operator==(CountingIterator const & other) const { return at_ == other.at_; }
  bool operator!=(CountingIterator const & other) const { return at_ != other.at_; }

private:
  char const * at_;
  char const ** reached_;
};

// The typed forms of the deepest values need some levels of their own.
constexpr std::size_t own_levels = 4;

class Builder {
public:
  using number_integer_t = nlohmann::json::number_integer_t;
  using number_unsigned_t = nlohmann::json::number_unsigned_t;
  using number_float_t = nlohmann::json::number_float_t;
  using string_t = nlohmann::json::string_t;
  using binary_t = nlohmann::json::binary_t;

  Builder(std::string_view text, cJsonForm form)
      : text_(text),
        form_(form),
        reached_(text.data()) {}
  cJsonResult run();

  bool null() { return put(cat::make_nil()); }
  bool boolean(bool value) { return put(cat::make(value)); }
  bool number_integer(number_integer_t value);
  bool number_unsigned(number_unsigned_t value);
  bool number_float(number_float_t, string_t const & digits);
  bool string(string_t & value) { return put(cat::make(value)); }
  bool binary(binary_t &) { return false; }
  bool start_object(std::size_t) { return open(make_ref<cMapObj>()); }
  bool start_array(std::size_t) { return open(make_ref<cVectorObj>()); }
  bool key(string_t & value);
  bool end_object() { return close(); }
  bool end_array() { return close(); }
  bool parse_error(std::size_t position, std::string const &,
                   nlohmann::json::exception const & what);

private:
  struct Frame {
    cRef<cMapObj> container;
    cKey key;
    bool wrapper; // one of the typed forms
  };

  bool typed_key(string_t const & text, cKey & key);
  bool open(cRef<cMapObj> container);
  bool close();
  bool in_wrapper() const;
  bool put(cRef<cObj> value);
  cRef<cObj> unwrap(cMapObj const & map) const;
  bool fail(std::string reason);
  bool fail_at(std::size_t position, std::string reason);

  std::string_view text_;
  cJsonForm form_;
  char const * reached_;
  std::vector<Frame> frames_;
  int values_ = 0;
  cJsonResult result_;
};

std::string shortened(std::string_view text) {
  constexpr std::size_t longest = 200;
  return std::string(text.substr(0, longest)) + (text.size() > longest ? "..." : "");
}

cJsonResult Builder::run() {
  CountingIterator const first(text_.data(), &reached_);
  CountingIterator const last(text_.data() + text_.size(), &reached_);
  bool good = nlohmann::json::sax_parse(first, last, this);
  // The library takes a zero byte for the end, whatever follows.
  if (std::size_t const zero = text_.find('\0'); good && zero != text_.npos)
    good = fail_at(zero + 1, "a zero byte");
  if (!good)
    result_.value = nullptr;
  return result_;
}

bool Builder::number_integer(number_integer_t value) {
  if (value < INT_MIN || value > INT_MAX)
    return fail("the number " + std::to_string(value) + " is out of range");
  return put(cat::make(static_cast<int>(value)));
}

bool Builder::number_unsigned(number_unsigned_t value) {
  if (value > INT_MAX)
    return fail("the number " + std::to_string(value) + " is out of range");
  return put(cat::make(static_cast<int>(value)));
}

bool Builder::number_float(number_float_t, string_t const & digits) {
  return fail("the number " + shortened(digits) + " is no integer, or out of range");
}

bool Builder::key(string_t & value) {
  Frame & frame = frames_.back();
  frame.key = cKey(value);
  if (form_ == cJsonForm::typed && value.starts_with('$') && !typed_key(value, frame.key))
    return false;
  if (frame.container->entries().find(frame.key) >= 0)
    return fail("the key \"" + shortened(value) + "\" stands twice");
  if (frame.wrapper && frame.container->size() > 0)
    return fail("a key \"" + shortened(value) + "\" where an object has to end");
  return true;
}

bool Builder::typed_key(string_t const & text, cKey & key) {
  if (text.starts_with("$$")) {
    key.text = text.substr(1);
    return true;
  }
  if (text.starts_with("$i:")) {
    auto const end = text.data() + text.size();
    key = cKey(0);
    auto const read = std::from_chars(text.data() + 3, end, key.number);
    return (read.ec == std::errc() && read.ptr == end) || fail("a bad key \"" + text + "\"");
  }
  if (text.starts_with("$b:"))
    return utf8_to_bytes(std::string_view(text).substr(3), key.text) || fail("a bad key of bytes");
  Frame & frame = frames_.back();
  bool const known = text == "$list" || text == "$macro" || text == "$bytes";
  if (!known || frame.container->size() > 0)
    return fail("a key \"" + shortened(text) + "\" that begins with \"$\"");
  frame.wrapper = true;
  return true;
}

bool Builder::open(cRef<cMapObj> container) {
  // Whether an object is one of the typed forms is known at its first key, so they are let in.
  if (frames_.size() >= json_max_depth + own_levels)
    return fail("the nesting is too deep");
  frames_.push_back({std::move(container), cKey(), false});
  return true;
}

bool Builder::close() {
  Frame const frame = std::move(frames_.back());
  frames_.pop_back();
  if (!frame.wrapper && frames_.size() >= json_max_depth && !in_wrapper())
    return fail("the nesting is too deep");
  if (!frame.wrapper)
    return put(frame.container);
  cRef<cObj> value = unwrap(*frame.container);
  return value ? put(value) : fail("a bad value of \"" + frame.key.text + "\"");
}

bool Builder::in_wrapper() const {
  return std::any_of(frames_.begin() + json_max_depth - 1, frames_.end(),
                     [](Frame const & frame) { return frame.wrapper; });
}

bool Builder::put(cRef<cObj> value) {
  if (++values_ > json_max_values)
    return fail("too many values");
  if (frames_.empty()) {
    result_.value = std::move(value);
    return true;
  }
  Frame & frame = frames_.back();
  if (frame.container->entries().is_vector())
    frame.container->append(value);
  else
    frame.container->set(frame.key, value);
  return true;
}

// The value of a typed form; null if it has the wrong shape.
cRef<cObj> Builder::unwrap(cMapObj const & map) const {
  if (cRef<cObj> const list = map.at("$list")) {
    gStrList strings;
    bool const good = list->map() && cat::convert_value(*list, strings);
    return good ? cat::make(strings) : nullptr;
  }
  if (cRef<cObj> const record = map.at("$macro")) {
    gCppMacro macro;
    return cat::convert_value(*record, macro) ? cat::make(macro) : nullptr;
  }
  cRef<cObj> const bytes = map.at("$bytes");
  std::string const * text = bytes ? cat::value_of<std::string>(*bytes) : nullptr;
  std::string value;
  return text && utf8_to_bytes(*text, value) ? cat::make(value) : nullptr;
}

// The library's text, without its own numbers and position.
bool Builder::parse_error(std::size_t position, std::string const &,
                          nlohmann::json::exception const & what) {
  std::string_view reason = what.what();
  for (std::string_view mark : {"] ", ": "})
    if (auto const at = reason.find(mark); at != reason.npos)
      reason.remove_prefix(at + mark.size());
  return fail_at(position, shortened(reason));
}

// A number is known to end when the character behind it has been read.
bool Builder::fail(std::string reason) {
  return fail_at(static_cast<std::size_t>(reached_ - text_.data()), std::move(reason));
}

bool Builder::fail_at(std::size_t position, std::string reason) {
  std::string_view const before = text_.substr(0, position > 0 ? position - 1 : 0);
  result_.line = 1 + static_cast<int>(std::count(before.begin(), before.end(), '\n'));
  result_.reason = std::move(reason);
  return false;
}

} // namespace

cJsonResult read_json(std::string_view text, cJsonForm form) {
  return Builder(text, form).run();
}
