// Singletons that the application initialises and a run resets as a group.
#pragma once

#include <vector>

// The constructor enters the object in Global::objects(), in the order of construction.
class gGlobalObj {
public:
  gGlobalObj();
  gGlobalObj(gGlobalObj const &) = delete;
  gGlobalObj & operator=(gGlobalObj const &) = delete;
  virtual ~gGlobalObj();

  // Called once at the start, after the option tree has its defaults.
  virtual void init() {}
  // Called at the end of every run. If it throws std::bad_alloc, the object is as good as empty.
  virtual void reset() {}
};

class gGlobalObjects {
public:
  void init_all();
  void reset_all();

  std::vector<gGlobalObj *>::const_iterator begin() const { return objects_.begin(); }
  std::vector<gGlobalObj *>::const_iterator end() const { return objects_.end(); }

private:
  friend class gGlobalObj;
  std::vector<gGlobalObj *> objects_;
};

namespace Global {
gGlobalObjects & objects();
}
