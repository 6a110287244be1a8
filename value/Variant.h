#pragma once

#include <cstdint>
#include <memory>
#include <string>
#include <type_traits>
#include <variant>
#include <vector>

#include "value/Date.h"
#include "value/Object.h"

namespace celdora {

using Bytes = std::vector<std::uint8_t>;

// A fixed-point amount with four decimals, as the platform's Currency.
struct Currency {
    std::int64_t scaled = 0;  // the amount times 10000
    auto operator<=>(const Currency&) const = default;
};

enum class VarType { Empty, Null, Boolean, Integer, Long, Double, Currency, Date, String, Bytes, Object };

// The automation value: what fields, settings and late-bound results are.
// A database NULL is Null, never an empty string. Conversions between kinds
// follow the platform's rules and live in value/Convert.h.
class Variant {
public:
    Variant() = default;                     // Empty
    Variant(bool value) : v_(value) {}       // Boolean
    Variant(int value) : v_(static_cast<std::int32_t>(value)) {}  // Long
    Variant(double value) : v_(value) {}     // Double
    Variant(Currency value) : v_(value) {}
    Variant(Date value) : v_(value) {}
    Variant(std::string value) : v_(std::move(value)) {}
    Variant(const char* value) : v_(std::string(value)) {}
    Variant(Bytes value) : v_(std::move(value)) {}
    Variant(std::shared_ptr<Object> value) : v_(std::move(value)) {}
    // Any automation object, held as an Object.
    template <class T, class = std::enable_if_t<std::is_base_of_v<Object, T> && !std::is_same_v<Object, T>>>
    Variant(std::shared_ptr<T> value) : v_(std::shared_ptr<Object>(std::move(value))) {}

    static Variant Null();
    static Variant Integer(std::int16_t value);
    static Variant Long(std::int32_t value);

    VarType Type() const { return static_cast<VarType>(v_.index()); }
    bool IsEmpty() const { return Type() == VarType::Empty; }
    bool IsNull() const { return Type() == VarType::Null; }
    bool IsNumeric() const;  // Boolean, Integer, Long, Double, Currency
    bool IsObject() const { return Type() == VarType::Object; }

    // Exact accessors: the value must already be of that kind, else
    // TypeMismatch. Use Convert.h for conversions.
    bool AsBoolean() const;
    std::int16_t AsInteger() const;
    std::int32_t AsLong() const;
    double AsDouble() const;
    Currency AsCurrency() const;
    Date AsDate() const;
    const std::string& AsString() const;
    const Bytes& AsBytes() const;
    const std::shared_ptr<Object>& AsObject() const;

    // Two variants are the same when they hold the same kind and value.
    bool operator==(const Variant& other) const { return v_ == other.v_; }

private:
    struct NullTag {
        bool operator==(const NullTag&) const { return true; }
    };
    using Storage = std::variant<std::monostate, NullTag, bool, std::int16_t, std::int32_t, double, Currency, Date,
                                 std::string, Bytes, std::shared_ptr<Object>>;
    explicit Variant(Storage storage) : v_(std::move(storage)) {}
    Storage v_;
};

// The name of a kind, as the platform's TypeName gives it ("Long", "Null"...).
const char* TypeName(VarType type);

}  // namespace celdora
