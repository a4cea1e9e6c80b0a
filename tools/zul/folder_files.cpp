#include "folder_files.h"

#include <algorithm>

#include "file_names.h"
#include "operating_system.h"

namespace tool {

namespace {

std::string with_slashes(std::string folder) {
    if (std::filesystem::path::preferred_separator != '/')
        std::replace(folder.begin(), folder.end(), '\\', '/');
    while (folder.size() > 1 && folder.ends_with('/') && !folder.ends_with(":/"))
        folder.pop_back();
    return folder;
}

} // namespace

std::vector<std::string>
files_below(const std::string& folder,
            const std::function<void(const std::string& file, const Refused&)>& onFailure) {
    std::vector<std::string> files, folders{with_slashes(folder)};
    while (!folders.empty()) {
        const std::string current = folders.back();
        folders.pop_back();
        std::vector<FolderEntry> entries;
        if (!list_folder(current, entries))
            onFailure(current, Refused::by_system(READ_ERROR, current, "The folder cannot be read."));
        for (const FolderEntry& entry : entries) {
            const std::string name = current + (current.ends_with('/') ? "" : "/") + entry.name;
            if (entry.name.empty()) {
                onFailure(current, Refused::by_system(READ_ERROR, current,
                                                      "It holds a file whose name has no characters."));
            } else if (entry.kind == FolderEntry::Kind::unreadable) {
                onFailure(name, Refused::by_system(OPEN_ERROR, name));
            } else if (entry.kind == FolderEntry::Kind::file) {
                files.push_back(name);
            } else if (entry.kind == FolderEntry::Kind::folder) {
                folders.push_back(name);
            } else {
                const bool isLink = entry.kind == FolderEntry::Kind::linkToFolder;
                warn(shown_name(name) +
                     (isLink ? ": a link to a folder is not followed" : ": left out, since it is no file"));
            }
        }
    }
    std::sort(files.begin(), files.end());
    return files;
}

} // namespace tool
