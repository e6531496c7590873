#pragma once

#include <string>
#include <string_view>

namespace timeline {

/// How a document names a file: `editor` is the form that editors write themselves
/// (file://localhost/C%3A/a.mov, file://localhost/home/a.mov,
/// file://localhost//server/share/a.mov), `standard` the one that libraries decode
/// (file:///C:/a.mov, file://server/share/a.mov).
enum class UrlStyle { editor, standard };

/// The URL of the file at `path` (a POSIX path, a Windows drive path or a network share). Every
/// byte but letters, digits and - . _ ~ / is percent-encoded, so the path comes back bit by bit.
std::string fileUrl(std::string_view path, UrlStyle style);

}  // namespace timeline
