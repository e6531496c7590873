#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <system_error>
#include <vector>

namespace report {

// What std::filesystem does too, but not on Windows with long paths: the runtime library that it
// rests on there refuses their extended form, lists and removes no folder beyond 260 characters,
// and takes any two files of one drive for one when it is to copy one over the other. Paths come
// from `fromUtf8`. All are callable from any thread.

/// What lies at `path`: not_found, directory, regular, or something else; `none` with an `error`
/// where that cannot be told. Links are followed.
std::filesystem::file_type kindOf(const std::filesystem::path& path, std::error_code& error);

/// `name` from the root on, without dots, with slashes; `name` itself where the system cannot tell.
std::string wholePath(const std::string& name);

/// Bytes of a file; 0 if there is none.
std::uintmax_t sizeOf(const std::filesystem::path& path);

/// Bytes that this user may still write into `folder`; the largest number where that is unknown.
std::uintmax_t roomIn(const std::filesystem::path& folder);

/// Whether both name one existing file.
bool areOneFile(const std::filesystem::path& first, const std::filesystem::path& second);

/// Whether `path` cannot be read because another program has opened it for itself alone; that
/// happens on Windows only.
bool isHeldByAnother(const std::filesystem::path& path);

/// Deletes a file; a missing one, or one that cannot be deleted, stays without a word.
void removeFile(const std::filesystem::path& path);

/// Deletes a folder with all that is in it, as far as that may be deleted; links are not followed.
void removeFolder(const std::filesystem::path& folder);

/// Copies a file over whatever file `to` is; what stands there after an error may be half a copy.
std::error_code copyFile(const std::filesystem::path& from, const std::filesystem::path& to);

/// Makes the folder and those above it; existing ones are no error.
std::error_code makeFolders(const std::filesystem::path& folder);

/// One name in a folder. A link to a folder is neither, so that walking ends.
struct FolderItem {
  std::string name;  // UTF-8
  bool isFolder, isFile;
};

/// What is in `folder`, in no order; nothing if it may not be read.
std::vector<FolderItem> itemsOf(const std::filesystem::path& folder);

}  // namespace report
