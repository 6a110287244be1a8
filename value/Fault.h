#pragma once

#include <string>

namespace celdora {

// The one thing thrown across module boundaries: the platform's error number
// and text. Database faults carry the driver's own number and message.
struct Fault {
    long number = 0;
    std::string description;
};

// The platform's own faults, with its numbers and texts.
Fault InvalidProcedureCall();   // 5
Fault Overflow();               // 6
Fault SubscriptOutOfRange();    // 9
Fault TypeMismatch();           // 13
Fault FileNotFound();           // 53
Fault ObjectNotSet();           // 91
Fault InvalidUseOfNull();       // 94
Fault ObjectRequired();         // 424
Fault CantCreateObject();       // 429
Fault PathFileAccessError();    // 75
Fault InvalidPropertyValue();   // 380
Fault CancelSelected();         // 32755, a common dialog cancelled with CancelError set

// The texts the system shows for a fault, built here and nowhere else.
// number + " (" + description + ")"
std::string NumberAndDescription(const Fault& fault);
// number + "(" + description + ")", the variant without the blank.
std::string NumberAndDescriptionTight(const Fault& fault);
// description + " (" + number + ")", the order of the traps of the
// configuration dialog's pages.
std::string DescriptionAndNumber(const Fault& fault);
// "Error " + number + " (" + description + ")"
std::string ErrorText(const Fault& fault);
// The same followed by " in procedure " + procedure.
std::string ErrorTextIn(const Fault& fault, const std::string& procedure);
// "Error: " + "(" + number + ") " + description
std::string ErrorTextColon(const Fault& fault);
// "Error: " + "(" + number + ")" + description, the variant without the blank.
std::string ErrorTextColonTight(const Fault& fault);

}  // namespace celdora
