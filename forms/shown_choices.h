#pragma once
// A list of permitted values is data: it is stored as declared whatever the
// session's language. What the user sees of it may be translated; these map
// one way and back. An unknown value, or a list shown as stored, maps to itself.

#include <QStringList>

namespace co::forms {

QString ValorMostrado(const QStringList &valores, const QStringList &mostrados, const QString &valor);
QString ValorGuardado(const QStringList &valores, const QStringList &mostrados, const QString &mostrado);

} // namespace co::forms
