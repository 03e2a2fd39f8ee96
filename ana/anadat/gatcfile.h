// A file of the intermediate code while it is written.
#pragma once

#include <memory>
#include <ostream>
#include <streambuf>

#include "vlb/gpathstring.h"

// What is written goes to a file by large pieces. A unit is written in some thirty small ones.
class gFileBuffer : public std::streambuf {
public:
  gFileBuffer();
  ~gFileBuffer() override;
  gFileBuffer(gFileBuffer const &) = delete;
  gFileBuffer & operator=(gFileBuffer const &) = delete;

  // Writes over what the file holds, or makes it.
  bool open(gPathstring const & path);
  // Cuts the file behind what was written. False if something couldn't be written.
  bool close();

protected:
  int_type overflow(int_type c) override;
  std::streamsize xsputn(char const * text, std::streamsize size) override;
  int sync() override { return flush() ? 0 : -1; }

private:
  bool flush();
  bool write(char const * text, std::size_t size);

  std::unique_ptr<char[]> buffer_;
  int file_ = -1;
  bool failed_ = false;
};

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
  gFileBuffer buffer_;
  std::ostream stream_{&buffer_};
  bool open_;
};
