#pragma once
// Rows written in multi-row INSERT statements: a batch gathers the literal
// values of its rows and sends one statement per `filasPorSentencia` rows, so
// memory holds one statement whatever the number of rows.
//
// Statements go to a `DestinoSentencias`: the statement layer for the demo,
// or anything else that takes statement text (a file, a plain connection).
// After the first failure a batch sends nothing more and keeps the failure.

#include "core/database.h"

#include <QDate>
#include <QString>
#include <QStringList>
#include <QTime>

namespace co::demo {

class DestinoSentencias {
public:
    virtual ~DestinoSentencias() = default;
    // Runs one statement. Empty on success, else the failure text.
    virtual QString Ejecutar(const QString &sql) = 0;
};

// The company's connection of the statement layer, quietly: failures come back
// as text for the caller to tell.
class DestinoModuloDatos : public DestinoSentencias {
public:
    explicit DestinoModuloDatos(TModuloDatos &datos) : datos_(datos) {}
    QString Ejecutar(const QString &sql) override;

private:
    TModuloDatos &datos_;
};

class LoteInsercion {
public:
    LoteInsercion(DestinoSentencias &destino, const QString &tabla, const QStringList &columnas,
                  int filasPorSentencia = 400);
    ~LoteInsercion() = default;
    LoteInsercion(const LoteInsercion &) = delete;
    LoteInsercion &operator=(const LoteInsercion &) = delete;

    // One row: as many literals as columns.
    void Fila(const QStringList &literales);
    // Sends the rows gathered. False after any failure.
    bool Vaciar();
    const QString &Fallo() const { return fallo_; }
    qint64 Filas() const { return filas_; }

private:
    DestinoSentencias &destino_;
    QString cabecera_;
    int filasPorSentencia_;
    int pendientes_ = 0;
    qint64 filas_ = 0;
    QString sentencia_;
    QString fallo_;
};

// Literals as the statements of the business code write them.
QString Texto(const QString &texto);
QString Entero(qint64 valor);
// A figure with a fixed number of decimals.
QString Numero(double valor, int decimales);
QString Fecha(const QDate &fecha);
// A clock time: the null date with the time.
QString Hora(const QTime &hora);

} // namespace co::demo
