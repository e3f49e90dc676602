// Moving over a table read a page at a time: order, ends, counts, ranges,
// bookmarks, key search and filters, on both back-ends.
#include "forms_fixture.h"

#include <gtest/gtest.h>
#include <numeric>

namespace co::forms::test {
namespace {

QList<int> range(int from, int to, int step = 1) {
    QList<int> out;
    for (int i = from; i <= to; i += step)
        out << i;
    return out;
}

class TableNavigation : public FormsTest {};

TEST_P(TableNavigation, WalksEveryRowInKeyOrderAcrossPages) {
    obras(1, 25);
    auto t = abrir();
    EXPECT_TRUE(t->Bof());
    EXPECT_FALSE(t->Eof());
    EXPECT_EQ(recorrer(*t), range(1, 25));
    EXPECT_TRUE(t->Eof());
    // Next at the end stays on the last record.
    t->Next();
    EXPECT_EQ(codigo(*t), 25);
    QList<int> back;
    for (t->Last(); !t->Bof(); t->Prior())
        back << codigo(*t);
    QList<int> expected = range(1, 25);
    std::reverse(expected.begin(), expected.end());
    EXPECT_EQ(back, expected);
    EXPECT_EQ(codigo(*t), 1);
}

TEST_P(TableNavigation, OpensByReadingOnePageOnly) {
    obras(1, 95);
    abrir(QStringLiteral("PRUOBRA"), 10); // the session learns the columns
    auto t = abrir(QStringLiteral("PRUOBRA"), 10);
    EXPECT_EQ(t->StatementsRun(), 1) << "a known table is opened by its first page alone";
    t->MoveBy(9);
    EXPECT_EQ(t->StatementsRun(), 1) << "rows within the first page need no statement";
    t->Next();
    EXPECT_EQ(codigo(*t), 11);
    EXPECT_EQ(t->StatementsRun(), 2);
}

TEST_P(TableNavigation, AColumnAddedInTheSessionShowsOnTheNextOpening) {
    obras(1, 3);
    abrir()->Close();
    ASSERT_FALSE(datos_->EjecutarSQL(QStringLiteral("alter table PRUOBRA add Notas VARCHAR(12)"))
                     .startsWith(QStringLiteral("Error.")));
    auto t = abrir();
    ASSERT_NE(t->FindField(QStringLiteral("Notas")), nullptr);
    EXPECT_EQ(t->FieldByName(QStringLiteral("Notas")).DataType(), TipoCampo::ftString);
    EXPECT_EQ(t->FieldByName(QStringLiteral("Notas")).Size, 12);
}

TEST_P(TableNavigation, PriorFromTheLastPageCrossesBackIntoTheOneBefore) {
    obras(1, 23);
    auto t = abrir(QStringLiteral("PRUOBRA"), 5);
    t->Last();
    EXPECT_TRUE(t->Eof());
    EXPECT_EQ(t->MoveBy(-7), -7);
    EXPECT_EQ(codigo(*t), 16);
    EXPECT_EQ(t->MoveBy(-100), -15);
    EXPECT_TRUE(t->Bof());
    EXPECT_EQ(codigo(*t), 1);
}

TEST_P(TableNavigation, CountsAndPlacesRecords) {
    obras(10, 200, 10);
    auto t = abrir(QStringLiteral("PRUOBRA"), 4);
    EXPECT_EQ(t->RecordCount(), 20);
    t->MoveBy(12);
    EXPECT_EQ(codigo(*t), 130);
    EXPECT_EQ(t->RecNo(), 13);
}

TEST_P(TableNavigation, EmptyTableIsBothEnds) {
    auto t = abrir();
    EXPECT_TRUE(t->IsEmpty());
    EXPECT_TRUE(t->Bof());
    EXPECT_TRUE(t->Eof());
    EXPECT_EQ(t->RecordCount(), 0);
    EXPECT_EQ(t->RecNo(), 0);
    t->Next();
    t->Last();
    EXPECT_TRUE(t->IsEmpty());
}

TEST_P(TableNavigation, SecondaryIndexOrdersByItsFields) {
    ok(QStringLiteral("INSERT INTO PRUOBRA (CodigoObra, Nombre) VALUES ('1', 'Cubierta')"));
    ok(QStringLiteral("INSERT INTO PRUOBRA (CodigoObra, Nombre) VALUES ('2', 'Acera')"));
    ok(QStringLiteral("INSERT INTO PRUOBRA (CodigoObra, Nombre) VALUES ('3', 'Bordillo')"));
    ok(QStringLiteral("INSERT INTO PRUOBRA (CodigoObra, Nombre) VALUES ('4', 'Acera')"));
    auto t = abrir(QStringLiteral("PRUOBRA"), 2);
    t->SetIndexName(QStringLiteral("Nombre"));
    EXPECT_EQ(t->IndexFields(), QStringList{QStringLiteral("Nombre")});
    EXPECT_EQ(recorrer(*t), (QList<int>{2, 4, 3, 1})) << "equal names fall back on the key";
    EXPECT_TRUE(t->FindKey({QStringLiteral("Bordillo")}));
    EXPECT_EQ(codigo(*t), 3);
}

TEST_P(TableNavigation, RangeOnLeadingKeyFieldKeepsOnlyItsRows) {
    for (int obra = 1; obra <= 3; ++obra)
        lineas(obra, 12);
    auto t = abrir(QStringLiteral("PRULINEA"), 5);
    EXPECT_EQ(t->RecordCount(), 36);
    t->SetRange({2}, {2});
    EXPECT_EQ(t->RecordCount(), 12);
    QList<int> lineasVistas;
    for (; !t->Eof(); t->Next()) {
        EXPECT_EQ(codigo(*t), 2);
        lineasVistas << static_cast<int>(t->FieldByName(QStringLiteral("Linea")).AsInteger());
    }
    EXPECT_EQ(lineasVistas, range(1, 12));
    t->Last();
    EXPECT_EQ(t->FieldByName(QStringLiteral("Linea")).AsInteger(), 12);
    EXPECT_EQ(codigo(*t), 2);
    t->SetRange({2, 5}, {3, 2});
    EXPECT_EQ(t->RecordCount(), 10) << "tuples from (2,5) to (3,2)";
    t->CancelRange();
    EXPECT_EQ(t->RecordCount(), 36);
}

TEST_P(TableNavigation, RangeWithMoreValuesThanIndexFieldsIsRefused) {
    auto t = abrir();
    try {
        t->SetRange({1, 2}, {1, 2});
        FAIL();
    } catch (const EDatabaseError &) {
    }
    EXPECT_FALSE(t->HasRange());
}

TEST_P(TableNavigation, BookmarksSurviveInsertsBeforeThem) {
    obras(2, 40, 2);
    auto t = abrir(QStringLiteral("PRUOBRA"), 4);
    t->MoveBy(9);
    ASSERT_EQ(codigo(*t), 20);
    const Bookmark marca = t->GetBookmark();
    for (int nueva : {1, 3, 5, 7, 21}) {
        t->Append();
        t->FieldByName(QStringLiteral("CodigoObra")).SetAsInteger(nueva);
        t->Post();
        EXPECT_EQ(codigo(*t), nueva) << "a posted record is the current one";
    }
    EXPECT_TRUE(t->BookmarkValid(marca));
    t->GotoBookmark(marca);
    EXPECT_EQ(codigo(*t), 20);
    EXPECT_EQ(t->RecNo(), 14);
    t->Delete();
    EXPECT_EQ(codigo(*t), 21);
    EXPECT_FALSE(t->BookmarkValid(marca));
    EXPECT_THROW(t->GotoBookmark(marca), EDatabaseError);
    EXPECT_EQ(codigo(*t), 21);
}

TEST_P(TableNavigation, FindKeyNearestAndLocate) {
    obras(10, 100, 10);
    auto t = abrir(QStringLiteral("PRUOBRA"), 3);
    EXPECT_TRUE(t->FindKey({70}));
    EXPECT_EQ(codigo(*t), 70);
    EXPECT_FALSE(t->FindKey({75}));
    EXPECT_EQ(codigo(*t), 70) << "a failed search leaves the record";
    t->FindNearest({75});
    EXPECT_EQ(codigo(*t), 80);
    t->FindNearest({1000});
    EXPECT_EQ(codigo(*t), 100) << "past the end: the last record";
    EXPECT_TRUE(t->Locate(QStringLiteral("Nombre"), {QStringLiteral("Obra 40")}));
    EXPECT_EQ(codigo(*t), 40);
    EXPECT_TRUE(t->Locate(QStringLiteral("Nombre"), {QStringLiteral("obra 9")},
                          int(LocateOption::CaseInsensitive) | int(LocateOption::PartialKey)));
    EXPECT_EQ(codigo(*t), 90);
    EXPECT_FALSE(t->Locate(QStringLiteral("Nombre;Importe"), {QStringLiteral("Obra 40"), 1.0}));
    EXPECT_EQ(codigo(*t), 90);
    EXPECT_THROW(t->Locate(QStringLiteral("NoExiste"), {1}), EDatabaseError);
}

TEST_P(TableNavigation, SetKeyWritesTheKeyBufferNotTheRecord) {
    obras(1, 5);
    auto t = abrir();
    t->SetKey();
    EXPECT_EQ(t->State(), DatasetState::SetKey);
    t->FieldByName(QStringLiteral("CodigoObra")).SetAsInteger(4);
    EXPECT_TRUE(t->GotoKey());
    EXPECT_EQ(t->State(), DatasetState::Browse);
    EXPECT_EQ(codigo(*t), 4);
    EXPECT_EQ(t->FieldByName(QStringLiteral("Nombre")).AsString(), QStringLiteral("Obra 4"));
    EXPECT_EQ(datos_->EjecutarSQL(QStringLiteral("SELECT COUNT(*) FROM PRUOBRA")),
              QStringLiteral("5"));
}

TEST_P(TableNavigation, FilterSkipsRowsAcrossPages) {
    obras(1, 60);
    auto t = abrir(QStringLiteral("PRUOBRA"), 7);
    t->SetFilter(QStringLiteral("(Importe >= '30') AND\n(Nombre <> 'Obra 4*')"));
    t->SetFiltered(true);
    QList<int> expected;
    for (int i = 20; i <= 60; ++i)
        if (!QString::number(i).startsWith(u'4'))
            expected << i;
    EXPECT_EQ(codigo(*t), 20);
    EXPECT_EQ(t->RecordCount(), expected.size());
    t->MoveBy(5);
    EXPECT_EQ(t->RecNo(), 6);
    t->First();
    EXPECT_EQ(recorrer(*t), expected);
    t->Last();
    EXPECT_EQ(codigo(*t), 60);
    t->SetFilter(QStringLiteral("(CodigoObra = '1000')"));
    EXPECT_TRUE(t->IsEmpty());
    t->SetFilter(QString());
    EXPECT_EQ(t->RecordCount(), 60) << "an empty text shows every row";
}

TEST_P(TableNavigation, BadFilterKeepsTheOneInForce) {
    obras(1, 10);
    auto t = abrir();
    t->SetFilter(QStringLiteral("(CodigoObra > '5')"));
    t->SetFiltered(true);
    for (const QString &bad :
         {QStringLiteral("(Importe > 'mucho')"), QStringLiteral("(Nada = '1')"),
          QStringLiteral("(CodigoObra > '5'")}) {
        EXPECT_THROW(t->SetFilter(bad), EDatabaseError) << bad.toStdString();
        EXPECT_EQ(t->Filter(), QStringLiteral("(CodigoObra > '5')"));
        EXPECT_EQ(t->RecordCount(), 5);
    }
}

CO_ON_BOTH_BACKENDS(TableNavigation);

} // namespace
} // namespace co::forms::test
