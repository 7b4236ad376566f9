#pragma once

namespace dorvik {

class DorvikData;
struct DVKWorkData;

/// The objects that the whole process shares: the facts of the installation, the user's settings and
/// the log. They live as long as someone uses them, and all on the one thread of the program.
namespace modGlobal {

/// The first user reads the installation's facts and the user's settings, from those stores of `RegistryUtils` that are
/// installed, and the last one writes the settings back.
///
/// The first user creates the three objects and makes the log the installed one of `modLog`: its path
/// is `ErrorLogFile`, its component "DVKWork" with the version of this component. The folder of the
/// data files is created; where that cannot be done, the error log goes to the folder of temporary
/// files instead. Every user is counted.
void CreateGlobalObjects();

/// The last user releases the objects; from then on the log is the quiet one of `modLog` again.
void DestroyGlobalObjects();

/// Whether someone uses the objects.
bool IsInUse();

/// These raise `kObjectNotSet` while no one uses the objects.
DorvikData& Data();
DVKWorkData& WorkData();

}  // namespace modGlobal

}  // namespace dorvik
