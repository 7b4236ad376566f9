#pragma once

#include <compare>
#include <string>
#include <string_view>

namespace dorvik {

/// The path of a file or folder as the system of this machine has it: UTF-8, or on Linux whatever bytes the names
/// there are made of. It is not a text, and no text becomes one by accident: `modHostPath` makes paths from texts and
/// texts from paths, and each of its functions says which form of text it means. An empty path names nothing.
class HostPath {
public:
    HostPath() = default;
    /// REQUIRES: `bytes` are in the system's own form already.
    static HostPath FromBytes(std::string bytes);
    const std::string& Bytes() const { return m_bytes; }

    bool IsEmpty() const { return m_bytes.empty(); }

    /// The entry of this folder with that name, which is in the system's own form. An empty path is the working folder.
    HostPath operator/(std::string_view name) const;
    /// The neighbour whose name is this one's with `ending` added: "-wal" leads from "a.mdb" to "a.mdb-wal".
    HostPath WithEnding(std::string_view ending) const;
    /// The folder that it is in; "." for a name alone, empty for an empty path.
    HostPath Folder() const;
    /// The last part; empty where the path ends in a separator.
    std::string_view Name() const;

    friend auto operator<=>(const HostPath&, const HostPath&) = default;

private:
    std::string m_bytes;
};

}  // namespace dorvik
