// The list of files is of the base library, which knows no error records.

#include "app/options/input_check.h"

#include "store/cerr.h"

void Vapp::publish_problems(gFileList const & files) {
  for (gString const & problem : files.problems())
    cat::publish_error(1, problem);
}
