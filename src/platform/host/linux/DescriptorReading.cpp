#include "DescriptorReading.h"

#include <unistd.h>

namespace dorvik::modDescriptor {

Reading ReadToEnd(int descriptor, std::size_t expected, std::size_t most, std::string& bytes) {
    // One byte more than the length shows the end without growing the buffer.
    bytes.assign(expected + 1, '\0');
    std::size_t size = 0;
    for (;;) {
        const ssize_t count =
            Repeated([&] { return ::read(descriptor, bytes.data() + size, bytes.size() - size); });
        if (count < 0) {
            return Reading::Failed;
        }
        if (count == 0) {
            bytes.resize(size);
            return Reading::Done;
        }
        size += static_cast<std::size_t>(count);
        if (size > most) {
            return Reading::TooLong;
        }
        if (size == bytes.size()) {
            bytes.resize(2 * bytes.size());
        }
    }
}

}  // namespace dorvik::modDescriptor
