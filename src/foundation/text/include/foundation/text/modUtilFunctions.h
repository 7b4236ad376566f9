#pragma once

#include "base/DateTime.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace dorvik {

class ITextBox;

/// File, path and text functions that the source model, the rulebase and the reports share. Paths
/// are the program's own: the separator is the backslash. What is said to be logged is not raised.
namespace modUtilFunctions {

/// The path that `relative` names as seen from `base`, which must end in a backslash: none is
/// inserted. Leading "..\" go up from `base`; a path with a drive letter comes back as it is written.
// Required: "..\" further inside is not resolved, a leading backslash does not make a path absolute.
std::string RelativeToAbsolutePath(std::string_view relative, std::string_view base);

/// "C:\a\" for "C:\a\b\" and "C:\" for "C:\a"; empty without a backslash.
// Required: "abc\" gives "a".
std::string ParentFolderFromPath(std::string_view path);

/// What follows the last backslash.
// Required: empty if that holds no ".".
std::string FilenameFromFullPathName(std::string_view path);

/// The path up to and including the last backslash; empty if there is none.
std::string PathFromFilename(std::string_view path);

/// The part before the first NUL; all of it if there is none. Raises `kOverflow` if the NUL follows character 32767.
std::string TrimAtNull(std::string_view text);

std::string AddBackslash(std::string_view path);
std::string RemoveBackslash(std::string_view path);

/// True if a search of the folder for the last part of the path finds a file. "*" and "?" count as
/// wildcards and a path that ends in a backslash matches any file; folders and hidden files (by
/// the host's convention: those whose names begin with a dot) are not found. A failure is logged
/// and gives false.
bool FileExists(std::string_view path);
/// A failure is logged and gives false.
bool FolderExists(std::string_view path);
/// Deletes the file, also a read-only one, if `FileExists`. A failure is logged.
void DeleteFile(std::string_view path);
/// Creates each folder of the path that is not there. A failure is logged and gives false.
bool CreateFullPath(std::string_view path);

/// Reads "yyyymmdd hhnnss". Raises `kTypeMismatch` where digits are missing. Numbers beyond their
/// range carry over: day 32 of a month is the first or so of the next.
DateTime KyDBDateToDate(std::string_view text);

/// Adds blanks up to `width` characters; a longer text is left as it is.
std::string PadRight(std::string_view text, std::int16_t width);

/// The leading number of the text, with "," or "." as the decimal point; 0 where there is none.
double StringToDouble(std::string_view text);

void SelectAllText(ITextBox& textBox);

/// The code for a digit or the backspace; 0, which cancels the key, for any other.
std::int16_t CheckNumericKey(std::int16_t keyCode);

}  // namespace modUtilFunctions

}  // namespace dorvik
