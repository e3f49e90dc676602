#pragma once
// `TfGENEBUSA`, "Búsqueda por Aproximación en la tabla": a value for any field
// of the table, matched anywhere in the field and by spelling variants (b/v,
// accents, c/k/qu-like, ch/tx/tz, i/y). The variants are matched on both
// back-ends through the function COINCIDEPATRON that every connection has.

#include "forms/search_window.h"

namespace co::forms {

struct FilaValor {
    QString campo;
    QString valor;
};

// The condition of one field and value: the value's variant pattern as a
// regular expression matched anywhere in the field's text.
QString CondicionAproximada(const QString &campo, const QString &valor);

class TfGENEBUSA : public Form {
public:
    TfGENEBUSA(TModuloDatos &datos, Messenger &mensajes);
    ~TfGENEBUSA() override;

    void Abrir(const QString &tabla, const OpcionesBusqueda &opciones);
    // `ValueListEditor`: one row per field of the table without memos, those
    // hidden from the user left out. Values are typed into `valor`.
    QList<FilaValor> ValueListEditor;
    void PonerValor(const QString &campo, const QString &valor);

    // `pbBuscarClick`; without any value, "¡Debe introducir alguna restricción
    // para realizar la búsqueda!".
    void Buscar();
    // Accepts the current row: its key, "NULL" for empty values; without key
    // fields, the first field's text.
    void Conforme();
    void Cancelar();
    bool ProcesarTecla(const Tecla &tecla);

    const QString &UltimaSentencia() const { return ultimaSentencia_; }
    const std::optional<QString> &Resultado() const { return resultado_; }
    Query &Query1() const { return *filas_; }
    DBGrid &DBGrid1() const { return *grid_; }

private:
    void cerrar(std::optional<QString> resultado);

    TModuloDatos &datos_;
    Messenger &mensajes_;
    QString tabla_;
    OpcionesBusqueda opciones_;
    QString ultimaSentencia_;
    std::optional<QString> resultado_;
    Query *filas_ = nullptr;
    DBGrid *grid_ = nullptr;
};

} // namespace co::forms
