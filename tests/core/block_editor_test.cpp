// The block editor without its window: rows from template and current block,
// change marks, line breaks, validation against option lists, the button kinds,
// and the block it gives back.
#include "core/block_editor.h"

#include "core/key_value_block.h"
#include "support/layer_fixture.h"

#include <gtest/gtest.h>

namespace co {
namespace {

const QString kDot = QString(QChar(memo::kSaltoLinea));

class BlockEditor : public ::testing::Test {
protected:
    TfGENERINI make(const QString &plantilla, const QString &actual, const QString &opciones = {}) {
        return TfGENERINI(plantilla, actual, QStringLiteral("Formato=0,0,450,0"), opciones,
                          QStringLiteral("Campo;Valor"), mensajes_);
    }
    QString accept(TfGENERINI &editor) {
        QString out;
        EXPECT_TRUE(editor.Aceptar(out)) << port_.texts().join(u'\n').toStdString();
        return out;
    }
    ScriptedMessages port_;
    Messenger mensajes_{&port_};
};

TEST_F(BlockEditor, RowsFollowTheTemplateWithCurrentValues) {
    TfGENERINI e = make(QStringLiteral("B=uno\r\nA=NULL\r\nC=tres"),
                        QStringLiteral("c=actual=con igual\r\nSobra=x\r\nA=\r\n"));
    ASSERT_EQ(e.RowCount(), 3);
    EXPECT_EQ(e.filas()[0].valor, QStringLiteral("uno"));
    EXPECT_EQ(e.filas()[1].valor, QString());
    EXPECT_EQ(e.filas()[2].valor, QStringLiteral("actual=con igual"));
    EXPECT_EQ(accept(e), QStringLiteral("B=uno\r\nA=\r\nC=actual=con igual"));
    EXPECT_EQ(TfGENERINI::Caption(), QStringLiteral("Editor de Registro INI"));
    EXPECT_EQ(e.geometria().width, 450);
    EXPECT_EQ(e.geometria().left, 0);
    EXPECT_EQ(e.tituloCampo(), QStringLiteral("Campo"));
    EXPECT_EQ(e.tituloValor(), QStringLiteral("Valor"));
}

TEST_F(BlockEditor, ChangedRowsAreMarked) {
    TfGENERINI e = make(QStringLiteral("A=1\r\nB=2"), QString());
    ASSERT_TRUE(e.ModificarValor(1, QStringLiteral("3")));
    EXPECT_EQ(e.TextoCampo(0), QStringLiteral("A"));
    EXPECT_EQ(e.TextoCampo(1), QStringLiteral("B (*)"));
    e.ModificarValor(1, QStringLiteral("2"));
    EXPECT_EQ(e.TextoCampo(1), QStringLiteral("B"));
    EXPECT_FALSE(e.ModificarValor(2, QStringLiteral("x")));
    EXPECT_FALSE(e.ModificarValor(-1, QStringLiteral("x")));
}

TEST_F(BlockEditor, LineBreaksAreStoredAsDotsAndDotsRoundTrip) {
    const QString current =
        QStringLiteral("Pie=Atentamente") + kDot + QStringLiteral("La dirección");
    TfGENERINI e = make(QStringLiteral("Pie=NULL\r\nFirma=NULL"), current);
    EXPECT_EQ(e.ContenidoVisor(0), QStringLiteral("Atentamente\r\nLa dirección"));
    EXPECT_EQ(e.TituloVisor(0), QStringLiteral("Contenido del Campo: Pie"));
    e.ModificarValor(1, QStringLiteral("Línea 1\r\nLínea 2\nx=y"));
    EXPECT_EQ(accept(e), current + QStringLiteral("\r\nFirma=Línea 1") + kDot +
                             QStringLiteral("Línea 2") + kDot + QStringLiteral("x=y"));
}

TEST_F(BlockEditor, ListValuesKeepTheirStoredPart) {
    TfGENERINI e = make(QStringLiteral("Modo=Normal\r\nOtro=x"), QString(),
                        QStringLiteral("Modo=Normal>N,Ampliado>A"));
    EXPECT_EQ(e.filas()[0].tipo, TipoValorINI::Lista);
    EXPECT_EQ(e.filas()[0].visibles,
              QStringList({QStringLiteral("Normal"), QStringLiteral("Ampliado")}));
    EXPECT_EQ(accept(e), QStringLiteral("Modo=N\r\nOtro=x"));
    e.ModificarValor(0, QStringLiteral("A"));
    EXPECT_EQ(accept(e), QStringLiteral("Modo=A\r\nOtro=x"));
    EXPECT_EQ(e.DefinicionSelector(0), QStringList({QStringLiteral("Titulo=Selección de Modo"),
                                                    QStringLiteral("Modo=Normal")}));
    EXPECT_TRUE(e.DefinicionSelector(1).isEmpty());
}

TEST_F(BlockEditor, UnknownValueIsRefusedAndNothingTypedIsLost) {
    TfGENERINI e = make(PlantillaCorreoElectronico(), QStringLiteral("ServidorSMTP=smtp.x.es"),
                        OpcionesCorreoElectronico());
    ASSERT_EQ(e.filas()[0].clave, QStringLiteral("ClienteSMTP"));
    e.ModificarValor(0, QStringLiteral("Outlook"));
    QString result = QStringLiteral("sin tocar");
    EXPECT_FALSE(e.Aceptar(result));
    EXPECT_EQ(result, QStringLiteral("sin tocar"));
    EXPECT_EQ(port_.texts(),
              QStringList({QStringLiteral("¡El valor para el campo ClienteSMTP es incorrecto!")}));
    EXPECT_EQ(e.filas()[0].valor, QStringLiteral("Outlook"));
    EXPECT_EQ(e.filas()[1].valor, QStringLiteral("smtp.x.es"));

    port_.clear();
    e.ModificarValor(0, QString());
    EXPECT_FALSE(e.Aceptar(result));
    EXPECT_EQ(port_.texts(),
              QStringList({QStringLiteral("¡No existe el valor para el campo ClienteSMTP")}));

    e.ModificarValor(0, QStringLiteral("Indy"));
    const QString block = accept(e);
    QString value;
    memo::ValorClave(block, QStringLiteral("ClienteSMTP"), value);
    EXPECT_EQ(value, QStringLiteral("Indy"));
    memo::ValorClave(block, QStringLiteral("ClienteSMTP(Masivo)"), value);
    EXPECT_EQ(value, QStringLiteral("Indy"));
    EXPECT_EQ(memo::Claves(block).size(), 14);
}

TEST_F(BlockEditor, QuestionMarkOrNoValidarTakeAnyValue) {
    TfGENERINI open = make(QStringLiteral("A=x"), QString(), QStringLiteral("A=uno,dos,?"));
    open.ModificarValor(0, QStringLiteral("libre"));
    EXPECT_EQ(accept(open), QStringLiteral("A=libre"));
    EXPECT_EQ(open.filas()[0].visibles,
              QStringList({QStringLiteral("uno"), QStringLiteral("dos")}));
    TfGENERINI global =
        make(QStringLiteral("A=x"), QString(), QStringLiteral("A=uno,dos\r\nNoValidar"));
    EXPECT_EQ(accept(global), QStringLiteral("A=x"));
    TfGENERINI strict = make(QStringLiteral("A=x"), QString(), QStringLiteral("A=uno,dos"));
    QString out;
    EXPECT_FALSE(strict.Aceptar(out));
}

TEST_F(BlockEditor, RangeButtonAsksFromAndTo) {
    TfGENERINI e =
        make(QStringLiteral("Codigos=NULL\r\nNotas=NULL"), QStringLiteral("Codigos=10...20"),
             QStringLiteral("Codigos=ELLIPSIS_RANGO\r\nNotas=ELLIPSIS"));
    EXPECT_EQ(e.filas()[1].tipo, TipoValorINI::Ellipsis);
    port_.answer(QStringLiteral("100"));
    port_.answer(QStringLiteral("200"));
    ASSERT_TRUE(e.PedirRango(0));
    EXPECT_EQ(port_.texts(),
              QStringList({QStringLiteral("Introduzca el valor Desde para Codigos"),
                           QStringLiteral("Introduzca el valor Hasta para Codigos")}));
    EXPECT_FALSE(e.PedirRango(1));
    e.ModificarValor(1, QStringLiteral("texto libre\nsin lista"));
    EXPECT_EQ(accept(e), QStringLiteral("Codigos=100...200\r\nNotas=texto libre") + kDot +
                             QStringLiteral("sin lista"));
}

TEST_F(BlockEditor, UnansweredRangeKeepsTheCurrentRange) {
    TfGENERINI e = make(QStringLiteral("Codigos=NULL"), QStringLiteral("Codigos=10...20"),
                        QStringLiteral("Codigos=ELLIPSIS_RANGO"));
    ASSERT_TRUE(e.PedirRango(0));
    EXPECT_EQ(e.filas()[0].valor, QStringLiteral("10...20"));
}

TEST_F(BlockEditor, AnalysisGroupButtonUsesTheCategory) {
    TfGENERINI e = make(QStringLiteral("Grupos=NULL"), QString(),
                        QStringLiteral("Grupos=ELLIPSIS_GA:Cliente"));
    EXPECT_FALSE(e.SeleccionarGrupos(0));
    QString seen;
    e.setSelectorGrupos([&](const QString &categoria, const QString &) -> std::optional<QString> {
        seen = categoria;
        return categoria == u"Cliente" ? std::optional<QString>(QStringLiteral("Zona=Norte"))
                                       : std::nullopt;
    });
    ASSERT_TRUE(e.SeleccionarGrupos(0));
    EXPECT_EQ(seen, QStringLiteral("Cliente"));
    EXPECT_EQ(accept(e), QStringLiteral("Grupos=Zona=Norte"));
}

class ScriptedView : public BlockEditorView {
public:
    explicit ScriptedView(bool acceptIt) : accept_(acceptIt) {}
    bool run(TfGENERINI &editor, QString &resultado) override {
        editor.ModificarValor(0, QStringLiteral("nuevo"));
        return accept_ && editor.Aceptar(resultado);
    }

private:
    bool accept_;
};

TEST_F(BlockEditor, EditingThroughAViewChangesTheResultOnlyWhenAccepted) {
    QString result = QStringLiteral("A=viejo");
    ScriptedView cancel(false);
    EXPECT_FALSE(
        EditarRegistroINI(QStringLiteral("A=x"), result, result, {}, {}, {}, mensajes_, cancel));
    EXPECT_EQ(result, QStringLiteral("A=viejo"));
    ScriptedView ok(true);
    EXPECT_TRUE(
        EditarRegistroINI(QStringLiteral("A=x"), result, result, {}, {}, {}, mensajes_, ok));
    EXPECT_EQ(result, QStringLiteral("A=nuevo"));
}

TEST_F(BlockEditor, FormatWithTrailingSemicolonAndBadNumbers) {
    TfGENERINI e(QStringLiteral("A=1"), {}, QStringLiteral("Titulo=x\r\nFormato=10,abc,430,-5;"),
                 {}, {}, mensajes_);
    EXPECT_EQ(e.geometria().left, 10);
    EXPECT_EQ(e.geometria().top, 0);
    EXPECT_EQ(e.geometria().width, 430);
    EXPECT_EQ(e.geometria().height, 0);
    EXPECT_EQ(e.tituloCampo(), QString());
}

} // namespace
} // namespace co
