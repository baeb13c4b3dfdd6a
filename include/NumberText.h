/// Numbers as text, for documents and for people.
///
/// Documents use the classic form: the decimal character is the point under every locale.
///
///     ReplaceSep(0.1 + 0.2, nullptr)           // "0.3": 15 significant digits
///     Format(1e15, false, nullptr)             // "1e+15": the same form
///     Format(2.5, true, "%.2f")                // "2.50", or "2,50" where the locale says so
///     Format(3L)                               // "3"
///
/// 15 significant digits do not carry every double: one that needs 16 or 17 changes on the way.
/// NaN and the infinities come out as "nan", "-nan", "inf" and "-inf"; the missing value is a
/// number like any other here ("-1.79769313486232e+308").
///
/// Threads: safe, as long as no other thread changes the process's locale.
#pragma once

#include <string>

#include "QVExport.h"

namespace QVXML_940 {

/// `value` as text.
///
/// With `printfForm` true: printed as by printf with `format`, or with "%.15g" when that is null;
/// the decimal character is that of the process's locale. `format` must ask for exactly one double.
/// A text of any length comes out whole; an empty text when printf itself fails.
/// With `printfForm` false: `ReplaceSep(value, format)`, whatever `format` says.
QVCOMMON_API std::string Format(double value, bool printfForm, const char * format);

/// `value` as decimal digits: `Format(double(value), true, nullptr)`. From 1e15 on, which no 32-bit
/// value reaches, that is the exponent form.
QVCOMMON_API std::string Format(long value);

/// `value` with 15 significant digits in the form of "%.15g" and the classic locale. `format` is
/// not used.
QVCOMMON_API std::string ReplaceSep(double value, const char * format);

/// `value` in fixed notation with 16 digits behind the point, classic locale: "0.5000000000000000".
QVCOMMON_API std::string ReplaceSep(double value);

/// The decimal character of the process's current locale, as `setlocale` has set it.
QVCOMMON_API std::string GetDecimalCharacter();

/// ";", under every locale.
QVCOMMON_API std::string GetListSeparator();

/// "%.15g".
QVCOMMON_API std::string GetDefaultNumericFormat();

}  // namespace QVXML_940
