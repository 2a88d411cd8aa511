// Private to sheets: a folder of its own for files on their way.
#pragma once

#include <filesystem>
#include <string>

namespace sbd {

/// A new folder in the system's folder for such files, removed with all it holds by the destructor.
class CWorkFolder {
public:
    CWorkFolder();
    ~CWorkFolder();
    CWorkFolder(const CWorkFolder&) = delete;
    CWorkFolder& operator=(const CWorkFolder&) = delete;

    /// Empty if none could be made.
    [[nodiscard]] const std::filesystem::path& Path() const { return path_; }
    /// The path in the bytes that the C library's functions take.
    [[nodiscard]] const std::string& Narrow() const { return narrow_; }

private:
    std::filesystem::path path_;
    std::string narrow_;
};

} // namespace sbd
