#pragma once

#include <functional>
#include <string>

namespace tarvik::check {

// Files and folders by absolute paths of any length.

/// The path in the form that may have more than 260 characters. A relative path is returned unchanged.
std::wstring Unlimited(const std::wstring& path);

bool PathExists(const std::wstring& path);

/// Calls `visit` with the name of every file and folder in the folder, and whether it is a folder.
void ForEachEntry(const std::wstring& folder,
                  const std::function<void(const std::wstring& name, bool isFolder)>& visit);

/// Copies the files and subfolders of one folder into another and replaces existing files. Throws CheckError.
void CopyFolder(const std::wstring& from, const std::wstring& to);

/// Deletes the folder with everything in it. What is in use stays.
void DeleteFolder(const std::wstring& folder);

}  // namespace tarvik::check
