#pragma once

namespace celdora {

enum class DateOrder { DayFirst, MonthFirst };

// The machine's regional settings that the system's rules read: one object
// for the process, Mexican defaults, replaceable (tests swap it).
struct Regional {
    char decimalSeparator = '.';
    char groupSeparator = ',';
    DateOrder dateOrder = DateOrder::DayFirst;
};

const Regional& CurrentRegional();
void SetRegional(const Regional& settings);

// Restores the former settings when it goes out of scope.
class ScopedRegional {
public:
    explicit ScopedRegional(const Regional& settings);
    ~ScopedRegional();
    ScopedRegional(const ScopedRegional&) = delete;
    ScopedRegional& operator=(const ScopedRegional&) = delete;

private:
    Regional saved_;
};

}  // namespace celdora
