// The C/C++ comment preprocessor read rule by rule, with standard regular expressions: slow, and
// free of everything that makes the real one fast.
#pragma once

#include <string>

struct NaiveOptions {
  bool star = false, slash = false;
  std::string frame = "/*|", line = "/*-+=";
  bool macros = false; // KEEP keeps, GONE goes, CALL goes with its list, ARGS leaves its list
};

std::string naive_preprocess(std::string const & source, NaiveOptions const & options);
