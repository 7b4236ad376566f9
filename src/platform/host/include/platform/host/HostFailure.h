#pragma once

namespace dorvik {

/// What kind of failure the system reports of a file or folder.
enum class HostFailure {
    NoFile,    // its folder is there
    NoFolder,  // nor is its folder, or a folder was meant
    Denied,
    WriteProtected,  // the whole disk
    InUse,
    NotReady,  // a device that is not there or does not work
    DiskFull,  // or the user's share of it
    TooLong,   // a file beyond the size that one may have
    NoOrdinaryFile,
    AlreadyThere,
    NotEmpty,
    Other
};

namespace modHostFailure {

/// The kind of a failure that a library reports by the system's own number.
HostFailure OfSystemNumber(int number);

}  // namespace modHostFailure

}  // namespace dorvik
