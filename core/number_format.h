#pragma once
// Display masks of numeric fields, as kept in the number templates
// ("#,###.##", "#,##0.00", "0.##"), written in the system format of Spain:
// "." between thousands and "," before the decimals.
//
// Mask characters: "0" a digit always shown, "#" a digit shown when
// significant, the first "." the decimal point, "," anywhere before it turns
// thousand grouping on, '...' or "..." literal text, any other character
// literal. Up to three sections split by ";": positive, negative, zero. A
// negative value without its own section gets a leading "-"; a value that
// rounds to zero uses the zero section when there is one.
// Literal text is kept in front of the number when it precedes every digit
// placeholder and after it otherwise.
// Digits come from the value's 15 significant figures, rounded half up, so
// 1.005 with "0.00" shows "1,01" as it was typed.
// An empty mask gives the shortest general form ("1234,5").

#include <QString>

namespace co {

QString FormatFloat(const QString &mascara, double valor);

} // namespace co
