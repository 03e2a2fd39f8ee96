// Text on its way between the program, which has bytes, and the windows, which have characters.
#pragma once

#include <QCoreApplication>
#include <QString>
#include <string>
#include <string_view>

namespace Gui {

inline QString text(std::string_view bytes) {
  return QString::fromUtf8(bytes.data(), static_cast<qsizetype>(bytes.size()));
}
inline std::string bytes(QString const & text) {
  return text.toStdString();
}
// A word of the windows in the user's language.
inline QString tr(char const * word) {
  return QCoreApplication::translate("Gui", word);
}
// The same for words that the program hands to the windows, such as labels.
inline QString tr(std::string const & word) {
  return word.empty() ? QString() : QCoreApplication::translate("Gui", word.c_str());
}

} // namespace Gui
