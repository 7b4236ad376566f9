#pragma once

#include <string>
#include <string_view>

namespace dorvik {

/// Decodes one of the double-byte pages 932, 936, 949 and 950. A second byte may look like "[", "_"
/// or a letter; it belongs to its character and is never seen alone.
class DoubleByteDecoder {
public:
    /// True for a double-byte page that the C library of this machine can convert.
    static bool Offers(int codePage);

    /// Raises `kInvalidProcedureCall` where `Offers` is false.
    explicit DoubleByteDecoder(int codePage);
    ~DoubleByteDecoder();
    DoubleByteDecoder(const DoubleByteDecoder&) = delete;
    DoubleByteDecoder& operator=(const DoubleByteDecoder&) = delete;

    /// A well-formed pair without a character, and each byte that begins no pair, becomes U+FFFD.
    std::string Decode(std::string_view bytes);

    struct Page;

private:
    void Convert(std::string_view& rest, std::string& text);

    const Page* m_page = nullptr;
    void* m_converter = nullptr;  // iconv_t
};

}  // namespace dorvik
