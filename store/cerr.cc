#include "store/cerr.h"

#include <iostream>

cErrStream::cErrStream() : std::ostream(std::cerr.rdbuf()) {}

void cat::publish_error(unsigned code, std::string const & text) {
  cErr error(code, text);
  sig_error()(error);
}
