#pragma once
// `TMDObra`: the works data module of one company. It holds the row of
// `PARAOBRA` for the session, so every screen and calculation reads the works
// settings from one place; `RefrescarParametros` re-reads it after the
// parameters screen closes. The module is made again at each change of company.
//
// Without a row (a company whose parameters were never opened) the defaults
// below answer, the same values the parameters screen writes on its first opening.

#include "core/database.h"

#include <QHash>
#include <QList>
#include <QPair>
#include <QString>
#include <QVariant>

namespace co::works {

// Field and default value of each setting with one, in table order.
const QList<QPair<QString, QVariant>> &ValoresPorDefectoParametrosObra();

class TMDObra {
public:
    explicit TMDObra(TModuloDatos &datos);

    TModuloDatos &Datos() const { return datos_; }

    // Reads the row again; a failed read keeps the values held.
    void RefrescarParametros();
    // True when the values come from a stored row rather than the defaults.
    bool ParametrosGrabados() const { return grabados_; }

    // A setting as text or number; empty or 0 for a field without value.
    QString Parametro(const QString &campo) const;
    double ParametroNumero(const QString &campo) const;

    // A flag as it stands, or its default when the field holds nothing. Flags
    // are compared exactly: "SI" switches on, "NO" switches off, and any other
    // text ("si", "No ") is neither.
    QString Bandera(const QString &campo) const;
    bool EsSI(const QString &campo) const { return Bandera(campo) == u"SI"; }
    bool EsNO(const QString &campo) const { return Bandera(campo) == u"NO"; }

    // The flags the rest of the program asks most: on only for "SI".
    bool ParametrosMultiPartes() const { return EsSI(QStringLiteral("MultiPartes")); }
    bool ParametrosPartesSeparados() const { return EsSI(QStringLiteral("PartesSeparados")); }
    bool ParametrosAdmPorPorcentajes() const { return EsSI(QStringLiteral("AdmPorPorcentajes")); }
    bool ParametrosModificarPartes() const { return EsSI(QStringLiteral("ModificarPartes")); }

private:
    TModuloDatos &datos_;
    QHash<QString, QVariant> valores_; // by lower-case field name
    bool grabados_ = false;
};

} // namespace co::works
