#pragma once
// A folder of a test's own that goes away with it.

#include <cstdlib>
#include <filesystem>
#include <string>

namespace torlib::test {

class TemporaryFolder {
  public:
    TemporaryFolder() {
        std::string pattern = (std::filesystem::temp_directory_path() / "torlib_XXXXXX").string();
        path_ = mkdtemp(pattern.data());
    }
    TemporaryFolder(const TemporaryFolder&) = delete;
    TemporaryFolder& operator=(const TemporaryFolder&) = delete;
    ~TemporaryFolder() {
        std::error_code failure;
        std::filesystem::remove_all(path_, failure);
    }
    std::string File(const std::string& name) const { return path_ + "/" + name; }

  private:
    std::string path_;
};

} // namespace torlib::test
