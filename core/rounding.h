#pragma once
// The rounding routine of the system. Every money figure, quantity and
// percentage is rounded here and nowhere else.
//
// Values are binary floating point; the addend 0.5000001 (not 0.5) makes a
// value such as 1.005, stored as 1.00499999..., round up as the figure typed.
// The work is done in long double so that the scaling step loses nothing.

namespace co {

// Half-up to a whole number on the magnitude, sign restored: trunc(|v| + 0.5000001).
// Beyond the 64-bit integer range the fraction is split off and rounds up only
// when above 0.5. NaN and infinities come back unchanged; zero is never negative.
long double RedondearEntero(long double valor);

// Rounds to `decimales` places: scale by ten that many times (none when not
// positive), RedondearEntero, scale back. Never fails: a value whose scaling
// overflows comes back unchanged.
long double Redondear(int decimales, long double valor);

// True for a magnitude below 0.00001 (limits excluded).
bool EsCero(long double valor);

} // namespace co
