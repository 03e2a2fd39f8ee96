#include "store/gglobalobj.h"

#include <new>

gGlobalObj::gGlobalObj() {
  Global::objects().objects_.push_back(this);
}
gGlobalObj::~gGlobalObj() {
  std::erase(Global::objects().objects_, this);
}

void gGlobalObjects::init_all() {
  for (gGlobalObj * object : objects_)
    object->init();
}

// One that lacks the memory for its defaults keeps no other from letting its own go.
void gGlobalObjects::reset_all() {
  for (gGlobalObj * object : objects_) {
    try {
      object->reset();
    } catch (std::bad_alloc const &) {
      continue;
    }
  }
}
