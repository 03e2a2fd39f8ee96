// Buttons behind a path that let the user choose it.
#pragma once

#include "app/shell/dialogs/field.h"

inline gField chooser_button(char const * id, char const * field, char const * tool_tip) {
  return {.id = id,
          .kind = gField::Kind::button,
          .label = ">>",
          .place = gField::Place::beside,
          .chooser_of = field,
          .tool_tip = tool_tip};
}
