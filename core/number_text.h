#pragma once
// Numbers typed by users or read from files, in the system format of Spain:
// "," before the decimals and "." between thousands.

#include <QString>
#include <optional>

namespace co {

class Messenger;

// What a point means in a text without a comma.
enum class PuntoSinComa {
    Decimal,  // the decimal sign, as the keypad types it ("12.5")
    Millares, // a thousands mark, as the system writes numbers ("1.234")
};

// The one reading of a decimal text in the system format: "," is the decimal
// sign and the points before it are thousands marks ("1.234,56", "-12,5"); in
// a text without a comma a point is read as `punto` says. Blanks around are
// ignored; a sign and an exponent are allowed. nullopt for an empty text,
// anything that isn't a number, or a number that isn't finite.
std::optional<double> LeerDecimal(const QString &texto, PuntoSinComa punto = PuntoSinComa::Decimal);

// The number of a text. Without options the thousand separators "." are
// removed and "," is the decimal sign. With the option word `PuntoDecimal`
// in `opciones`, "," are removed and "." is the decimal sign. Blanks around
// the number, a sign and an exponent ("1,5E3") are allowed. A text that
// isn't a finite number throws Failure("'<text>' is not a valid floating
// point value").
double TextoANumero(const QString &texto, const QString &opciones = {});

// True when the text converts. When it doesn't and a label is given, warns
// "¡El valor de <label> es incorrecto! Repita por favor" through `mensajes`.
bool NumeroValido(const QString &texto, const QString &etiqueta, Messenger *mensajes);

} // namespace co
