// The grid's model over a paged table: rows read in chunks as the view asks,
// the end found without reading past it, cells formatted when drawn, and the
// record being edited shown live; on both back-ends.
#include "ui/dataset_model.h"

#include "forms/forms_fixture.h"

#include <gtest/gtest.h>

namespace co::ui {
namespace {

class GridModel : public forms::test::FormsTest {
protected:
    // The form goes before the session it reads from.
    void TearDown() override {
        model_.reset();
        form_.reset();
        FormsTest::TearDown();
    }

    // A form with Table1 on PRUOBRA (pages of `pagina` rows) shown by DBGrid1.
    DatasetModel &rejilla(int pagina) {
        form_ = std::make_unique<forms::Form>(QStringLiteral("fPRUEBA"));
        table_ = &form_->Add<forms::Table>(*datos_, QStringLiteral("Table1"),
                                           QStringLiteral("PRUOBRA"));
        table_->PageSize = pagina;
        auto &source = form_->Add<forms::DataSource>(QStringLiteral("DataSource1"), table_);
        grid_ = &form_->Add<forms::DBGrid>(QStringLiteral("DBGrid1"), &source);
        table_->Open();
        model_ = std::make_unique<DatasetModel>(*grid_, [](const std::function<void()> &a) {
            a();
            return true;
        });
        return *model_;
    }

    int columna(const QString &campo) const {
        for (int c = 0; c < model_->columnCount(); ++c)
            if (grid_->Columns[model_->gridColumn(c)].FieldName.compare(
                    campo, Qt::CaseInsensitive) == 0)
                return c;
        return -1;
    }

    QString celda(int fila, const QString &campo) const {
        return model_->data(model_->index(fila, columna(campo)), Qt::DisplayRole).toString();
    }

    QList<int> codigos() const {
        QList<int> out;
        for (int r = 0; r < model_->rowCount(); ++r)
            out << celda(r, QStringLiteral("CodigoObra")).toInt();
        return out;
    }

    std::unique_ptr<forms::Form> form_;
    forms::Table *table_ = nullptr;
    forms::DBGrid *grid_ = nullptr;
    std::unique_ptr<DatasetModel> model_;
};

TEST_P(GridModel, ReadsAChunkAndTheRestAsTheViewAsks) {
    obras(1, 130);
    DatasetModel &m = rejilla(10);
    EXPECT_EQ(m.rowCount(), DatasetModel::kChunk);
    QList<int> todos;
    while (m.canFetchMore({}))
        m.fetchMore({});
    for (int i = 1; i <= 130; ++i)
        todos << i;
    EXPECT_EQ(codigos(), todos) << "every row once, in key order, across pages and chunks";
    EXPECT_EQ(table_->FieldByName(QStringLiteral("CodigoObra")).AsInteger(), 1)
        << "reading for the view leaves the current record where it was";
}

TEST_P(GridModel, ATableOfExactlyOneChunkEndsWhenTheNextFetchFindsNothing) {
    obras(1, DatasetModel::kChunk);
    DatasetModel &m = rejilla(DatasetModel::kChunk);
    EXPECT_EQ(table_->StatementsRun(), 1) << "the first chunk reads one page, not the next";
    EXPECT_EQ(m.rowCount(), DatasetModel::kChunk);
    ASSERT_TRUE(m.canFetchMore({}));
    m.fetchMore({});
    EXPECT_EQ(m.rowCount(), DatasetModel::kChunk);
    EXPECT_FALSE(m.canFetchMore({}));
}

TEST_P(GridModel, ASmallTableIsWholeAtOnce) {
    obras(1, 5);
    DatasetModel &m = rejilla(10);
    EXPECT_EQ(m.rowCount(), 5);
    EXPECT_FALSE(m.canFetchMore({}));
}

TEST_P(GridModel, CellsTakeTheFieldsFormatWhenDrawn) {
    obras(1, 3);
    ok(QStringLiteral("UPDATE PRUOBRA SET Importe = 1234.5, HoraInicio = '1899-12-30 07:05:00' "
                      "WHERE CodigoObra = 2"));
    ok(QStringLiteral("UPDATE PRUOBRA SET FechaInicio = NULL WHERE CodigoObra = 1"));
    rejilla(10);
    forms::Field &importe = table_->FieldByName(QStringLiteral("Importe"));
    importe.DisplayFormat = QStringLiteral("#,##0.00");
    EXPECT_EQ(celda(1, QStringLiteral("Importe")), QStringLiteral("1.234,50"))
        << "a format set after reading shows on the next drawing";
    EXPECT_EQ(celda(1, QStringLiteral("HoraInicio")), QStringLiteral("07:05:00"));
    EXPECT_EQ(celda(0, QStringLiteral("FechaInicio")), QString()) << "no date, no text";
}

TEST_P(GridModel, TheRecordBeingEditedShowsWhatIsTyped) {
    obras(1, 3);
    rejilla(10);
    table_->Next();
    table_->Edit();
    table_->FieldByName(QStringLiteral("Nombre")).SetAsString(QStringLiteral("Tecleado"));
    EXPECT_EQ(celda(1, QStringLiteral("Nombre")), QStringLiteral("Tecleado"));
    EXPECT_EQ(celda(0, QStringLiteral("Nombre")), QStringLiteral("Obra 1"));
    EXPECT_EQ(celda(2, QStringLiteral("Nombre")), QStringLiteral("Obra 3"));
}

CO_ON_BOTH_BACKENDS(GridModel);

} // namespace
} // namespace co::ui
