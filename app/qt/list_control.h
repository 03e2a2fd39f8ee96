// The control of a list with columns.
#pragma once

#include "app/qt/field_control.h"

std::unique_ptr<gFieldControl> make_list_control(gField & field, gFieldControl::Events events);
