// One token a step; a group is skipped by counting braces.

#include "conv/rtf/rtf_words.h"

#include <algorithm>

#include "vlb/gstring.h"

bool Rtf::gWordReader::next() {
  while (pos_ < rtf_.size() && (rtf_[pos_] == '\n' || rtf_[pos_] == '\r'))
    ++pos_;
  word_ = {};
  has_number_ = false;
  if (pos_ >= rtf_.size())
    return false;
  std::size_t const begin = pos_;
  char const c = rtf_[pos_];
  if (c == '{' || c == '}') {
    kind_ = c == '{' ? open_group : close_group;
    depth_ += c == '{' ? 1 : depth_ > 0 ? -1 : 0;
    ++pos_;
  } else if (c == '\\') {
    take_control();
    return true;
  } else {
    kind_ = plain;
    pos_ = std::min(rtf_.find_first_of("{}\\\r\n", pos_), rtf_.size());
  }
  token_ = rtf_.substr(begin, pos_ - begin);
  return true;
}

void Rtf::gWordReader::take_control() {
  std::size_t const begin = pos_++;
  std::size_t const name = pos_;
  while (pos_ < rtf_.size() && Vlb::is_letter(rtf_[pos_]))
    ++pos_;
  if (pos_ == name) { // a control symbol such as \~ or \'e4
    bool const hex = pos_ < rtf_.size() && rtf_[pos_] == '\'';
    pos_ = std::min(rtf_.size(), pos_ + (hex ? 3 : 1));
    token_ = rtf_.substr(begin, pos_ - begin);
    bool const is_text = token_.size() > 1 && (hex || std::string_view("{}\\~_-").find(token_[1]) !=
                                                          std::string_view::npos);
    kind_ = is_text ? plain : control;
    return;
  }
  kind_ = control;
  word_ = rtf_.substr(name, pos_ - name);
  std::size_t const sign = pos_;
  if (pos_ < rtf_.size() && rtf_[pos_] == '-')
    ++pos_;
  number_ = 0;
  for (; pos_ < rtf_.size() && Vlb::is_digit(rtf_[pos_]); ++pos_) {
    has_number_ = true;
    number_ = std::min(number_, 100000000) * 10 + (rtf_[pos_] - '0');
  }
  if (!has_number_)
    pos_ = sign;
  else if (rtf_[sign] == '-')
    number_ = -number_;
  token_ = rtf_.substr(begin, pos_ - begin);
  if (pos_ < rtf_.size() && rtf_[pos_] == ' ')
    ++pos_;
  take_binary();
}

// Bytes behind \bin are no RTF.
void Rtf::gWordReader::take_binary() {
  if (word_ == "bin" && has_number_ && number_ > 0)
    pos_ = std::min(rtf_.size(), pos_ + static_cast<std::size_t>(number_));
}

std::string_view Rtf::gWordReader::skip_group() {
  std::size_t const begin = pos_ - 1;
  int const inside = depth_;
  while (depth_ >= inside && next()) {
  }
  return rtf_.substr(begin, pos_ - begin);
}

std::string_view Rtf::destination(std::string_view group) {
  gWordReader reader(group);
  if (!reader.next() || reader.kind() != gWordReader::open_group || !reader.next())
    return {};
  if (reader.token() == "\\*" && !reader.next())
    return {};
  return reader.word();
}
