// A command of the menu. Its class is named in the menu file and made by a factory.
#pragma once

#include <memory>

#include "app/shell/chandler_list.h"

class cMenuHandlerBase : public cHandler {
public:
  cMenuHandlerBase();
  ~cMenuHandlerBase() override;

  // Sets the entry up with the parameter text of the menu file, and enters it into the list, which
  // takes it over.
  virtual void Create(CString const & params, cHandlerList * list, cHandler * parent);
  virtual void Insert(cHandlerList * list, cHandler * parent);
  // Takes the entry out of its list and destroys it.
  virtual void Remove();
  // Reads the parameter text; called by Create.
  virtual void OnGetParam() {}
  // False if the command must not run now, whatever the menu shows.
  virtual bool OnValidate() { return OnUpdateCommand() != 0; }
  // Shows the dialog of the command; false if it has none or the user called it off.
  virtual bool OnDialog() { return false; }

  CString const & GetParameters() const { return parameters_; }

  int OnGetMessageString(CString & text) override;
  // What OnGetMessageString answers: the menu file tells it.
  void SetMessageString(CString const & text) { message_ = text; }

private:
  CString parameters_;
  CString message_;
  cHandlerList * list_ = nullptr;
};

// A command by the name of its class; null if there is none.
std::unique_ptr<cMenuHandlerBase> make_handler(std::string_view name);

// A label as plain text: without the "&" and the dots at its end.
CString plain_label(std::string_view label);

// Builds the menu of a list from a file. Entries whose class doesn't exist are left out, and told
// in one line of the log. False if the file can't be read; the list is then as it was.
bool CreateMenuFromFile(cHandlerList * list, char const * path);
