// The two dialogs need not know each other, and either may be closed.
#include "app/shell/dialogs/sheets/attributes_written.h"

cSignal const & Shell::attributes_written() {
  static cSignal signal;
  return signal;
}
