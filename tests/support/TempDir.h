// A fresh directory that is removed with all its contents at the end of the scope.
#pragma once

#include <sys/stat.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <string_view>

namespace OrlekTest {

/// Files in it have the usual modes, whatever the user's umask.
class TempDir {
public:
    explicit TempDir(const std::filesystem::path& parent = std::filesystem::temp_directory_path()) {
        umask(022);
        std::string pattern = (parent / "orlek-XXXXXX").string();
        if (mkdtemp(pattern.data()) == nullptr) {
            throw std::runtime_error("cannot create " + pattern);
        }
        mPath = pattern;
    }
    ~TempDir() {
        std::error_code ignored;
        std::filesystem::remove_all(mPath, ignored);
    }
    TempDir(const TempDir&) = delete;
    TempDir& operator=(const TempDir&) = delete;

    std::string path() const { return mPath; }
    std::string path(const std::string& name) const { return mPath + "/" + name; }

    /// Writes a file below the directory and returns its path.
    std::string write(const std::string& name, std::string_view bytes) const {
        std::string file = path(name);
        std::filesystem::create_directories(std::filesystem::path(file).parent_path());
        std::ofstream(file, std::ios::binary).write(bytes.data(), std::ssize(bytes));
        return file;
    }

private:
    std::string mPath;
};

}  // namespace OrlekTest
