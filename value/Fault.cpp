#include "value/Fault.h"

namespace celdora {

Fault InvalidProcedureCall() { return {5, "Invalid procedure call or argument"}; }
Fault Overflow() { return {6, "Overflow"}; }
Fault SubscriptOutOfRange() { return {9, "Subscript out of range"}; }
Fault TypeMismatch() { return {13, "Type mismatch"}; }
Fault FileNotFound() { return {53, "File not found"}; }
Fault ObjectNotSet() { return {91, "Object variable or With block variable not set"}; }
Fault InvalidUseOfNull() { return {94, "Invalid use of Null"}; }
Fault ObjectRequired() { return {424, "Object required"}; }
Fault CantCreateObject() { return {429, "ActiveX component can't create object"}; }
Fault PathFileAccessError() { return {75, "Path/File access error"}; }
Fault InvalidPropertyValue() { return {380, "Invalid property value"}; }
Fault CancelSelected() { return {32755, "Cancel was selected."}; }

std::string NumberAndDescription(const Fault& fault) {
    return std::to_string(fault.number) + " (" + fault.description + ")";
}

std::string NumberAndDescriptionTight(const Fault& fault) {
    return std::to_string(fault.number) + "(" + fault.description + ")";
}

std::string DescriptionAndNumber(const Fault& fault) {
    return fault.description + " (" + std::to_string(fault.number) + ")";
}

std::string ErrorText(const Fault& fault) { return "Error " + NumberAndDescription(fault); }

std::string ErrorTextIn(const Fault& fault, const std::string& procedure) {
    return ErrorText(fault) + " in procedure " + procedure;
}

std::string ErrorTextColon(const Fault& fault) {
    return "Error: (" + std::to_string(fault.number) + ") " + fault.description;
}

std::string ErrorTextColonTight(const Fault& fault) {
    return "Error: (" + std::to_string(fault.number) + ")" + fault.description;
}

}  // namespace celdora
