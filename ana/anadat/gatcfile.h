// A file of the intermediate code while it is written.
#pragma once

#include <fstream>
#include <memory>

#include "vlb/gpathstring.h"

// Replaces what the file held. A failure is reported as ERROR 21 with the path, once: at the
// opening, or for a failed write (a full disk) at close(); a failed write also marks the run as
// failed in gDocManager. A file that is destroyed without close() stays as far as it got.
class gAtcFile {
public:
  explicit gAtcFile(gPathstring const & path);

  bool is_open() const { return open_; }
  std::ostream & stream() { return stream_; }
  // False if something couldn't be written.
  bool close();

private:
  gPathstring path_;
  std::unique_ptr<char[]> buffer_;
  std::ofstream stream_;
  bool open_;
};
