#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace dorvik {

/// A value of a kind that this layer does not know, such as the dates, arrays and objects that a
/// rule script keeps for later. Only its creator can read it; everyone can show it.
class HeldValue {
public:
    virtual ~HeldValue() = default;
    virtual std::string AsText() const = 0;
    /// Which object the value refers to, null for none ("Nothing"); no value at all for what is not an
    /// object, such as a date.
    virtual std::optional<const void*> ObjectIdentity() const { return std::nullopt; }
};

/// A value of the kinds that a property bag holds: nothing (the default), a text, a 32-bit number,
/// a double or a boolean, or one that a script keeps there. Copies share a held value.
class Variant {
public:
    Variant() = default;
    Variant(std::string text) : m_value(std::move(text)) {}  // NOLINT(google-explicit-constructor)
    Variant(std::string_view text)
        : m_value(std::string(text)) {}  // NOLINT(google-explicit-constructor)
    Variant(const char* text)
        : m_value(std::string(text)) {}                // NOLINT(google-explicit-constructor)
    Variant(std::int32_t number) : m_value(number) {}  // NOLINT(google-explicit-constructor)
    Variant(double number) : m_value(number) {}        // NOLINT(google-explicit-constructor)
    Variant(bool flag) : m_value(flag) {}              // NOLINT(google-explicit-constructor)

    Variant(std::shared_ptr<const HeldValue> held)
        : m_value(std::move(held)) {}  // NOLINT(google-explicit-constructor)

    bool IsEmpty() const { return std::holds_alternative<std::monostate>(m_value); }
    bool IsText() const { return std::holds_alternative<std::string>(m_value); }
    bool IsLong() const { return std::holds_alternative<std::int32_t>(m_value); }
    bool IsDouble() const { return std::holds_alternative<double>(m_value); }
    bool IsBoolean() const { return std::holds_alternative<bool>(m_value); }

    bool IsHeld() const { return std::holds_alternative<Holder>(m_value); }
    double Double() const { return std::get<double>(m_value); }           // REQUIRES: IsDouble()
    const HeldValue& Held() const { return *std::get<Holder>(m_value); }  // REQUIRES: IsHeld()
    /// As for a held value; no value for all that is not held.
    std::optional<const void*> ObjectIdentity() const;

    /// The text form: "True" and "False", decimal numbers with "." as the point (a double with
    /// 15 significant digits), "" when empty.
    std::string AsText() const;
    /// The text itself, without a copy. REQUIRES: IsText().
    const std::string& Text() const { return std::get<std::string>(m_value); }
    /// As a 32-bit number: true is -1, empty is 0, fractions round half to even, a text (also that
    /// of a held value) is read as a number. Raises `kTypeMismatch` for any other text, `kOverflow` outside 32 bits.
    std::int32_t AsLong() const;
    /// As a boolean: "True" and "False" in any case, a number other than 0. Raises `kTypeMismatch` otherwise.
    bool AsBoolean() const;

    friend bool operator==(const Variant&, const Variant&) = default;

private:
    using Holder = std::shared_ptr<const HeldValue>;

    std::variant<std::monostate, std::string, std::int32_t, double, bool, Holder> m_value;
};

}  // namespace dorvik
