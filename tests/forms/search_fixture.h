#pragma once
// The search windows on a database: two small tables on both back-ends, a user
// whose options are kept, and a script in place of the modal run.
#include "core/sql_text.h"
#include "core/user_fixture.h"
#include "core/users.h"
#include "forms/searches.h"

#include <QDir>
#include <gtest/gtest.h>

namespace co::forms::test {

class Guion : public EjecutorBusqueda {
public:
    std::function<void(TfGENEBUSQ &)> busq;
    std::function<void(TfGENEBUSA &)> busa;
    QString tablaElegida;
    QStringList tablasOfrecidas;
    int veces = 0;
    void Mostrar(TfGENEBUSQ &v) override {
        ++veces;
        if (busq)
            busq(v);
        if (v.Abierta())
            v.Cancelar();
    }
    void Mostrar(TfGENEBUSA &v) override {
        ++veces;
        if (busa)
            busa(v);
    }
    QString SeleccionarTabla(const QStringList &tablas, const QString &) override {
        tablasOfrecidas = tablas;
        return tablaElegida;
    }
};

inline Tecla tecla(int key, Qt::KeyboardModifiers m = Qt::NoModifier) {
    return Tecla{key, m};
}

inline QStringList columna(Dataset &ds, const QString &campo) {
    QStringList out;
    for (ds.First(); !ds.Eof(); ds.Next())
        out << ds.FieldByName(campo).AsString();
    return out;
}

class Search : public co::test::UserTest {
protected:
    void SetUp() override {
        UserTest::SetUp();
        if (HasFatalFailure())
            return;
        ok(QStringLiteral(
            "CREATE TABLE PRUCLI (Codigo INTEGER NOT NULL, Nombre VARCHAR(40) DEFAULT '', "
            "Poblacion VARCHAR(40) DEFAULT '', CONSTRAINT PRUCLI_Clave1 PRIMARY KEY (Codigo))"));
        ok(QStringLiteral("CREATE INDEX PRUCLI_Clave2 ON PRUCLI (Nombre, Codigo)"));
        ok(QStringLiteral("CREATE TABLE PRULIN (Serie INTEGER NOT NULL, Numero INTEGER NOT NULL, "
                          "Sufijo VARCHAR(5) NOT NULL DEFAULT '', Texto VARCHAR(40) DEFAULT '', "
                          "CONSTRAINT PRULIN_Clave1 PRIMARY KEY (Serie, Numero, Sufijo))"));
        const QList<QPair<int, const char *>> clientes = {
            {5, "Vaca y Cía"}, {999, "Bacá Hermanos"}, {1000, "baca"},   {1001, "O'Brien"},
            {20000, "Txema"},  {20001, "Tzema"},       {20002, "Chema"}, {30000, "Pedro"}};
        for (const auto &[codigo, nombre] : clientes)
            ok(QStringLiteral(
                   "INSERT INTO PRUCLI (Codigo, Nombre, Poblacion) VALUES (%1, %2, 'Bilbao')")
                   .arg(codigo)
                   .arg(Entrecomillar(QString::fromUtf8(nombre))));
        for (const char *fila :
             {"12, 3, 'a'", "12, 5, 'a'", "12, 9, ''", "13, 1, 'a'", "11, 7, 'a'"})
            ok(QStringLiteral("INSERT INTO PRULIN (Serie, Numero, Sufijo) VALUES (%1)")
                   .arg(QString::fromLatin1(fila)));
        addUser(QStringLiteral("ANA"));
        opciones_.usuario = QStringLiteral("ANA");
        opciones_.carpetaPrograma = dir_.path();
        opciones_.rutaEstructuras = QStringLiteral(CO_SOURCE_DIR "/data/DATABASE.TXT");
        busquedas_ = std::make_unique<Busquedas>(*datos_, sesion_->mensajes(), guion_,
                                                 [this] { return opciones_; });
    }
    void TearDown() override {
        busquedas_.reset();
        UserTest::TearDown();
    }
    TfGENEBUSQ &ventana() { return busquedas_->VentanaBusqueda(); }

    OpcionesBusqueda opciones_;
    Guion guion_;
    std::unique_ptr<Busquedas> busquedas_;
};

} // namespace co::forms::test
