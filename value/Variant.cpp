#include "value/Variant.h"

#include "value/Fault.h"

namespace celdora {

namespace {
template <class T, class Storage>
const T& Exact(const Storage& storage) {
    if (const T* value = std::get_if<T>(&storage)) return *value;
    throw TypeMismatch();
}
}  // namespace

Variant Variant::Null() { return Variant(Storage(NullTag{})); }
Variant Variant::Integer(std::int16_t value) { return Variant(Storage(value)); }
Variant Variant::Long(std::int32_t value) { return Variant(Storage(value)); }

bool Variant::IsNumeric() const {
    switch (Type()) {
        case VarType::Boolean:
        case VarType::Integer:
        case VarType::Long:
        case VarType::Double:
        case VarType::Currency:
            return true;
        default:
            return false;
    }
}

bool Variant::AsBoolean() const { return Exact<bool>(v_); }
std::int16_t Variant::AsInteger() const { return Exact<std::int16_t>(v_); }
std::int32_t Variant::AsLong() const { return Exact<std::int32_t>(v_); }
double Variant::AsDouble() const { return Exact<double>(v_); }
Currency Variant::AsCurrency() const { return Exact<Currency>(v_); }
Date Variant::AsDate() const { return Exact<Date>(v_); }
const std::string& Variant::AsString() const { return Exact<std::string>(v_); }
const Bytes& Variant::AsBytes() const { return Exact<Bytes>(v_); }
const std::shared_ptr<Object>& Variant::AsObject() const { return Exact<std::shared_ptr<Object>>(v_); }

const char* TypeName(VarType type) {
    switch (type) {
        case VarType::Empty: return "Empty";
        case VarType::Null: return "Null";
        case VarType::Boolean: return "Boolean";
        case VarType::Integer: return "Integer";
        case VarType::Long: return "Long";
        case VarType::Double: return "Double";
        case VarType::Currency: return "Currency";
        case VarType::Date: return "Date";
        case VarType::String: return "String";
        case VarType::Bytes: return "Byte()";
        case VarType::Object: return "Object";
    }
    return "Unknown";
}

}  // namespace celdora
