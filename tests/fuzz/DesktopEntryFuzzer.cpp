// The desktop files of other programs, and the text of our own.

#include "Fuzzing.h"
#include "platform/freedesktop/applications/DesktopEntries.h"
#include "platform/freedesktop/applications/DesktopEntry.h"
#include "platform/linux/environment/TextDecoding.h"

#include <filesystem>
#include <fstream>

#include <unistd.h>

using namespace corvane::freedesktop;
using namespace corvane::linux;
using corvane::fuzz::require;

namespace {

namespace fs = std::filesystem;

/// A folder for one desktop file, as long as the process lives.
class Folder {
  public:
    Folder() : path_(fs::temp_directory_path() / ("corvane-fuzz-" + std::to_string(getpid()))) {
        fs::create_directories(path_);
    }
    Folder(const Folder &) = delete;
    Folder &operator=(const Folder &) = delete;
    ~Folder() { fs::remove_all(path_); }

    const fs::path &path() const { return path_; }

    void hold(std::string_view content) const {
        std::ofstream(path_ / "Some.desktop", std::ios::binary) << content;
    }

  private:
    const fs::path path_;
};

void readInstalled(std::string_view content) {
    static const Folder folder;
    folder.hold(content);
    const auto values = desktopEntryValues(content);
    const auto locale = values.find("Locale");
    DesktopEntries entries({folder.path()},
                           locale != values.end() ? locale->second : "sr_RS.UTF-8@latin");
    const auto name = entries.nameOf("Some");
    require(!name || (!name->empty() && utf8Text("x" + *name) == "x" + *name),
            "a name is valid UTF-8");
    require(entries.identifierFor("some", "Some").value_or("Some") == "Some",
            "the only application is the one found");
    require(!entries.identifierFor("", ""), "a window without a class is nobody's");
}

void writeAndRead(std::string_view text) {
    if (text.contains('\0')) {
        return;
    }
    const auto values = desktopEntryValues("[Desktop Entry]\nName=" + desktopEntryString(text) +
                                           "\nExec=" + desktopEntryCommand(text) + "\n");
    require(values.size() == 2, "a value is one line");
    require(values.at("Name") == text, "what was written is read as the same");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size) {
    const std::string_view content = corvane::fuzz::textOf(data, size);
    readInstalled(content);
    writeAndRead(content);
    return 0;
}
