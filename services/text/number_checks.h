#pragma once
// The input checks of the calculators: "positive" and "non-negative" number texts.
#include <string_view>

namespace kestra::text {

// Not empty, only the digits 0-9 and ".", and reads as at least 1e-7.
bool IsPositive(std::string_view s);
// Only digits and "." (the empty text passes and reads as 0).
bool IsNonNegative(std::string_view s);
// A double is checked on its "%.3f" text: negative values and values below 0.0005 fail.
bool IsPositive(double v);
bool IsNonNegative(double v);

}  // namespace kestra::text
