#include "platform/host/modHostStream.h"

#include "DescriptorReading.h"
#include "SystemFailure.h"
#include "platform/host/HostError.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace dorvik::modHostStream {

namespace {

using modDescriptor::Reading;

/// An open stream, closed at the end.
class Stream {
public:
    Stream(const HostPath& host, std::string_view path)
        : m_descriptor(modDescriptor::Repeated(
              [&] { return ::open(host.Bytes().c_str(), O_RDONLY | O_CLOEXEC | O_NOCTTY); })) {
        if (m_descriptor < 0) {
            RaiseHostError(modSystemFailure::OfFile(errno, host), path);
        }
    }
    ~Stream() { ::close(m_descriptor); }
    Stream(const Stream&) = delete;
    Stream& operator=(const Stream&) = delete;

    int Descriptor() const { return m_descriptor; }

private:
    int m_descriptor;
};

std::string ReadFrom(int descriptor, const HostPath& host, std::string_view path) {
    struct stat status {};
    if (::fstat(descriptor, &status) != 0 || S_ISDIR(status.st_mode) || S_ISBLK(status.st_mode)) {
        RaiseHostError(HostFailure::NoOrdinaryFile, path);
    }
    std::string bytes;
    switch (modDescriptor::ReadToEnd(descriptor, /*expected=*/0, kMostBytes, bytes)) {
        case Reading::Done: break;
        case Reading::Failed: RaiseHostError(modSystemFailure::OfFile(errno, host), path);
        case Reading::TooLong: RaiseHostError(HostFailure::TooLong, path);
    }
    return bytes;
}

}  // namespace

std::string ReadAll(const HostPath& host, std::string_view path) {
    const Stream stream(host, path);
    return ReadFrom(stream.Descriptor(), host, path);
}

std::string ReadInput() {
    return ReadFrom(STDIN_FILENO, HostPath::FromBytes("/dev/stdin"), "standard input");
}

}  // namespace dorvik::modHostStream
