#pragma once
// `TfGENERINI`, "Editor de Registro INI": the editor of key=value blocks held in
// memo fields, without its window. A window draws the rows, passes edits in and
// calls `Aceptar`; everything it decides lives here.
//
// Inputs:
// - template block: one `Clave=valor` line per key, in the order to show; "NULL"
//   as value means an empty cell;
// - current block: what the memo holds; its value wins for a key it has;
// - format: a line `Formato=left,top,width,height`; 0 keeps that default;
// - options list: `Clave=v1,v2,...` lines making the key a drop-down list. An item
//   may be "visible>stored". "?" in a list, "NoValidar" in a list or as a line of
//   its own, take any value. "ELLIPSIS" (free text), "ELLIPSIS_RANGO" (from/to) and
//   "ELLIPSIS_GA:<category>" (analysis groups) give the key a button instead;
// - column titles: "Campo;Valor".
// Result: one line per template key, in template order, line breaks written "·";
// keys only the current block has are dropped.

#include "core/messages.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <functional>
#include <optional>

namespace co {

enum class TipoValorINI { Libre, Lista, Ellipsis, EllipsisRango, EllipsisGA };

struct FilaRegistroINI {
    QString clave;
    QString valor; // as the block stores it
    QString valorInicial;
    TipoValorINI tipo = TipoValorINI::Libre;
    QStringList visibles;  // list items as shown
    QStringList guardados; // the stored part of each item
    bool validar = true;
    QString categoria; // of ELLIPSIS_GA

    bool modificada() const { return valor != valorInicial; }
};

struct GeometriaVentana {
    int left = 0;
    int top = 0;
    int width = 0;
    int height = 0;
};

class TfGENERINI {
public:
    // Chooses analysis groups of a category (the window of the small masters);
    // nullopt when the user cancels.
    using SelectorGrupos =
        std::function<std::optional<QString>(const QString &categoria, const QString &valor)>;

    TfGENERINI(const QString &plantilla, const QString &actual, const QString &formato,
               const QString &opciones, const QString &titulos, Messenger &mensajes);

    static QString Caption() { return QStringLiteral("Editor de Registro INI"); }

    const QList<FilaRegistroINI> &filas() const { return filas_; }
    int RowCount() const { return static_cast<int>(filas_.size()); }
    const GeometriaVentana &geometria() const { return geometria_; }
    const QString &tituloCampo() const { return tituloCampo_; }
    const QString &tituloValor() const { return tituloValor_; }

    // The key cell: the key, with " (*)" once its value was changed.
    QString TextoCampo(int fila) const;

    // Sets a cell's value; line breaks become "·". False for a row out of range.
    bool ModificarValor(int fila, const QString &texto);

    // ELLIPSIS_RANGO: asks from and to, stores "from...to".
    bool PedirRango(int fila);

    // ELLIPSIS_GA: runs the selector on the row's category. False without one, on
    // cancel, or for a row of another kind.
    void setSelectorGrupos(SelectorGrupos selector) { selector_ = std::move(selector); }
    bool SeleccionarGrupos(int fila);

    // The viewer of a long value (double click) and the picker of a list key.
    QString TituloVisor(int fila) const;
    QString ContenidoVisor(int fila) const;
    QStringList DefinicionSelector(int fila) const;

    // Validates every list value against its options, keeping stored parts of
    // "visible>stored" items. The first wrong value is told in a warning and
    // nothing is returned: the editor stays as it was, so nothing typed is lost.
    bool Aceptar(QString &resultado);

private:
    bool valid(int fila) const { return fila >= 0 && fila < filas_.size(); }

    QList<FilaRegistroINI> filas_;
    GeometriaVentana geometria_;
    QString tituloCampo_;
    QString tituloValor_;
    Messenger &mensajes_;
    SelectorGrupos selector_;
};

// What draws the editor: shows it, lets the user edit, and returns true once the
// user accepted and `Aceptar` succeeded (false on cancel).
class BlockEditorView {
public:
    virtual ~BlockEditorView() = default;
    virtual bool run(TfGENERINI &editor, QString &resultado) = 0;
};

// `EditarRegistroINI`: runs the editor; `resultado` gets the block on acceptance and
// is left alone otherwise.
bool EditarRegistroINI(const QString &plantilla, const QString &actual, QString &resultado,
                       const QString &formato, const QString &opciones, const QString &titulos,
                       Messenger &mensajes, BlockEditorView &vista);

// The template and options of the mail settings (`CfgCorreoElectronico`).
QString PlantillaCorreoElectronico();
QString OpcionesCorreoElectronico();

} // namespace co
