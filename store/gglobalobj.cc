#include "store/gglobalobj.h"

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

void gGlobalObjects::reset_all() {
  for (gGlobalObj * object : objects_)
    object->reset();
}
