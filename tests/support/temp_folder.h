// A folder of a test's own, removed with all it holds when the test ends.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <string_view>

class TempFolder {
public:
  TempFolder() {
    std::string made = (std::filesystem::temp_directory_path() / "vltest-XXXXXX").string();
    if (!::mkdtemp(made.data()))
      throw std::runtime_error("cannot make " + made);
    path_ = made;
  }
  TempFolder(TempFolder const &) = delete;
  TempFolder & operator=(TempFolder const &) = delete;
  ~TempFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
  }

  std::string const & path() const { return path_; }
  std::string path(std::string const & name) const { return path_ + "/" + name; }

  // Writes a file, with the folders that it lies in; returns its path.
  std::string write(std::string const & name, std::string_view text = "") const {
    std::filesystem::create_directories(std::filesystem::path(path(name)).parent_path());
    std::ofstream(path(name), std::ios::binary) << text;
    return path(name);
  }
  // The text of a file; "(missing)" if there is none.
  std::string read(std::string const & name) const {
    std::ifstream file(path(name), std::ios::binary);
    return file ? std::string(std::istreambuf_iterator<char>(file), {}) : "(missing)";
  }

private:
  std::string path_;
};
