// The first pass over a script: comments go, included files come in.
#pragma once

#include "vlb/parse/scan_base.h"

class mpre_scan : public gScanBase {
public:
  enum Condition { INITIAL = 0, INCLUDE = 2, ENDLINE = 4, COMMENT = 6 };

  explicit mpre_scan(int size) : gScanBase(size) {}

  // Writes the whole script to the output and returns 0.
  int scan() override;
  int wrap() override;

  using gScanBase::ECHO;
  void ECHO(char c) const override { ECHO(std::string_view(&c, 1)); }
  void ECHO(std::string const & text) const override { ECHO(std::string_view(text)); }
  void ECHO(std::string_view text) const override;

  // For the actions: pastes the file that the token names, without its comments, between two
  // directives that say where its lines and those behind it come from.
  void include_file();

private:
  void paste(gPathstring const & path, std::string_view text);

  mpre_scan const * into_ = nullptr; // for an included script: the one that includes it
};
