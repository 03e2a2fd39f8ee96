// What reacts to the user: commands, dropped files, and what a window system asks for.
#pragma once

#include "vlb/gstring.h"

class CDC;
class cUpdateRgns;
class cwMenuColl;
using CString = gString;

// A place in a window, in its pixels.
template <class T> struct cPointT2 { T x = 0, y = 0; };

// The On form is the hook that a class overrides; the Do form is what a caller uses, and passes on
// what isn't meant for this object. A result other than 0 means: done, nobody else needs to be
// asked. Drawing and the mouse are the window system's; here they do nothing.
class cHandler {
public:
  explicit cHandler(cHandler * parent = nullptr) : parent_(parent) {}
  virtual ~cHandler() = default;
  cHandler(cHandler const &) = delete;
  cHandler & operator=(cHandler const &) = delete;

  virtual int OnClipBg(CDC &) { return 0; }
  virtual int DoClipBg(CDC & dc) { return OnClipBg(dc); }
  virtual int OnEraseBg(CDC &) { return 0; }
  virtual int DoEraseBg(CDC & dc) { return OnEraseBg(dc); }
  virtual int OnDraw(CDC &, cUpdateRgns const *) { return 0; }
  virtual int DoDraw(CDC & dc, cUpdateRgns const * regions) { return OnDraw(dc, regions); }

  // Runs the command; non-zero if it ran. The number of DoCommand is that of id().
  virtual int OnCommand() { return 0; }
  virtual int DoCommand(int id) { return id == id_ ? OnCommand() : 0; }
  // Non-zero if the command is enabled.
  virtual int OnUpdateCommand() { return 1; }
  virtual int DoUpdateCommand(int id) { return id == id_ ? OnUpdateCommand() : 0; }

  virtual int DoDropFile(char const * path, cPointT2<int> const & place) {
    return OnDropFile(path, place);
  }
  virtual int OnDropFile(char const *, cPointT2<int> const &) { return 0; }
  // The text that explains the command.
  virtual int OnGetMessageString(CString &) { return 0; }
  virtual int DoGetMessageString(int id, CString & text) {
    return id == id_ ? OnGetMessageString(text) : 0;
  }

  virtual int OnMouse(cPointT2<int> const &, int, int) { return 0; }
  virtual int DoMouse(cPointT2<int> const & place, int message, int flags) {
    return OnMouse(place, message, flags);
  }
  virtual int OnSetCursor(cPointT2<int> const &) { return 0; }
  virtual int DoSetCursor(cPointT2<int> const & place) { return OnSetCursor(place); }
  virtual int OnEnter(cPointT2<int> const &) { return 0; }
  virtual int DoEnter(cPointT2<int> const & place) { return OnEnter(place); }
  virtual int OnCreatePopup(cPointT2<int> const &, cwMenuColl &) { return 0; }
  virtual int DoCreatePopup(cPointT2<int> const & place, cwMenuColl & menus) {
    return OnCreatePopup(place, menus);
  }

  cHandler * parent() const { return parent_; }
  // The number of the command in its list, from 1; 0 outside a list.
  int id() const { return id_; }

protected:
  void set_parent(cHandler * parent) { parent_ = parent; }

private:
  friend class cHandlerList;
  cHandler * parent_;
  int id_ = 0;
};
