// The parts of names such as "ns::Box::operator+=" and "Dates.TCalendar.IsFree".
#pragma once

#include <string_view>

struct gUnitRecord;

namespace Atc {
// The length of the separator that ends in front of `at`; 0 if there is none.
std::size_t separator_before(std::string_view name, std::size_t at);
// All but the last part, without the separator; empty if there is one part alone.
std::string_view scope_of(std::string_view name);
std::string_view last_component(std::string_view name);
// The same of a unit, as its reader has told it or else by its name.
std::string_view scope_of(gUnitRecord const & unit);
std::string_view last_component(gUnitRecord const & unit);
} // namespace Atc
