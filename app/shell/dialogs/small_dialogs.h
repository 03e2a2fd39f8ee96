// Dialogs of one or two lines that others open. They store nothing: the caller reads the texts
// behind OK.
#pragma once

#include <functional>

#include "app/options/pattern_rules.h"
#include "app/shell/dialogs/dialog.h"

// Base of dialogs with lines of text whose rules run at OK alone.
class gLinesDialog : public gDialog {
public:
  explicit gLinesDialog(std::string title, int context);

protected:
  // A line; the focus begins at the first one.
  void add_line(std::string id, std::string label, std::string text);
  std::string const & text_of(char const * id) const;
  gField & line(char const * id) const;
  // The rules at OK. A refusal with an empty text only keeps the dialog.
  virtual Vapp::gCheck check_lines() { return std::nullopt; }
  // Shows the refusal; the base gives the focus to the first line.
  virtual void tell(Vapp::gRefusal const & refusal);
  void tell_at(char const * id, std::string const & text);

private:
  class Page;
  Page * page_;
};

// One line under a subtitle.
class cTxtDialog : public gLinesDialog {
public:
  // May bring the text into its form; the line shows that.
  using Check = std::function<Vapp::gCheck(std::string & text)>;
  cTxtDialog(std::string title, std::string subtitle, std::string text = {}, Check check = {});
  std::string const & text() const { return text_of("text"); }

protected:
  Vapp::gCheck check_lines() override;

private:
  Check check_;
};

// A new attribute. `tree` has the attributes under "attr", and outlives the dialog.
class NewattrDialog : public gLinesDialog {
public:
  explicit NewattrDialog(cObj const & tree);
  std::string const & name() const { return text_of("name"); }
  std::string const & comment() const { return text_of("comment"); }

protected:
  Vapp::gCheck check_lines() override;

private:
  cObj const & tree_;
};

// A value of an attribute, new where `value` is empty. `attribute` is the record that gets it, and
// outlives the dialog.
class gAttvalDialog : public gLinesDialog {
public:
  gAttvalDialog(std::string title, cObj const & attribute, std::string value = {},
                std::string output = {});
  std::string const & value() const { return text_of("value"); }
  std::string const & output() const { return text_of("output"); }

protected:
  Vapp::gCheck check_lines() override;

private:
  cObj const & attribute_;
  std::string before_;
};

// A keyword with its separators. `tree` has all patterns and subentries, as the options have them,
// and outlives the dialog; `place` is where a keyword is changed.
class gKwdDialog : public gLinesDialog {
public:
  gKwdDialog(std::string title, cObj const & tree, Vapp::gKeywordPlace place = {},
             std::string keyword = {}, std::string separators = {});
  std::string const & keyword() const { return text_of("keyword"); }
  std::string const & separators() const { return text_of("separators"); }

protected:
  Vapp::gCheck check_lines() override;
  void tell(Vapp::gRefusal const & refusal) override;

private:
  cObj const & tree_;
  Vapp::gKeywordPlace place_;
};

// Name and version of the program.
class gAboutDialog : public gDialog {
public:
  gAboutDialog();
  bool has_cancel() const override { return false; }
};
