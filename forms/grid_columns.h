#pragma once
// A grid column stated in one expression:
//   Columna("CodigoProveedor", "Proveedor").Ancho(8)
//   Columna("Tipo", "Tipo").Lista({"Trabajo", "Maquina"})
//   Columna("DescripcionProveedor", "Nombre Proveedor").SoloLectura()

#include "forms/form.h"

namespace co::forms {

class Columna {
public:
    Columna(const char *campo, const char *titulo)
        : columna_(QString::fromLatin1(campo), QString::fromUtf8(titulo)) {}
    Columna(QString campo, QString titulo) : columna_(std::move(campo), std::move(titulo)) {}

    Columna &Ancho(int pixeles) {
        columna_.Width = pixeles;
        return *this;
    }
    Columna &SoloLectura() {
        columna_.ReadOnly = true;
        return *this;
    }
    Columna &Lista(QStringList valores) {
        columna_.PickList = std::move(valores);
        return *this;
    }
    Columna &Oculta() {
        columna_.Visible = false;
        return *this;
    }
    operator GridColumn() const { return columna_; }

private:
    GridColumn columna_;
};

} // namespace co::forms
