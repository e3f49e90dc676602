#pragma once
// `Table`: a dataset over one table of the database, in the order of its active
// index (the primary key fields complete the order so that it is total).
//
// Rows are read a page at a time with keyset paging: the first page is
// `ORDER BY <order> LIMIT n`, the next `WHERE (<order>) > (<last row>)`, the one
// before `WHERE (<order>) < (<first row>) ORDER BY ... DESC`. Opening a grid on
// a million rows reads one page; at most a few pages are kept in memory.
// Index fields are expected to hold values (not NULL), as the tables made from
// the structure files do.
//
// Writes go through the statement layer with literals from `FormatoLiteralSQL`;
// an insert leaves out null fields so that column defaults apply, an update sets
// only the fields that changed. A refused write raises EDatabaseError with the
// statement's failure text and the record stays pending.
//
// Two writers of one row: on a back-end with row locks, Edit takes the row
// (`SELECT ... FOR UPDATE NOWAIT` in a transaction held until post or cancel),
// so the second writer is refused at Edit with "Record locked by another user".
// Otherwise Post checks, inside a transaction, that the row still holds the
// values read at Edit, and refuses with the same text when it does not. Either
// way the refused writer keeps its typed values pending and the other's update
// stands. A row deleted meanwhile gives "Record/Key deleted".

#include "core/database.h"
#include "core/record_view.h"
#include "core/table_catalog.h"
#include "core/table_opening.h"
#include "forms/dataset.h"

#include <deque>

namespace co::forms {

class Table : public Dataset, public RecordView, public TablaAbrible {
public:
    explicit Table(TModuloDatos &datos, QString name = QStringLiteral("Table1"),
                   QString tableName = {});
    ~Table() override;

    TModuloDatos &Datos() const { return datos_; }
    void SetTableName(const QString &name);
    // Rows read per statement: a grid's first screenful and a little more.
    int PageSize = 64;
    QStringList PrimaryKey() const { return primaryKey_; }

    // Dataset
    QStringList IndexFields() const override;
    QString KeyTableName() const override { return tableName_; }
    QString ConnectionWord() const override;

    // TablaAbrible
    QString TableName() const override { return tableName_; }
    QString ComponentName() const override { return Name(); }
    QString OwnerName() const override { return Component::OwnerName(); }
    QString DatabaseName() const override { return databaseName_; }
    void SetDatabaseName(const QString &conexion) override { databaseName_ = conexion; }
    bool Active() const override { return Dataset::Active(); }
    void Close() override { Dataset::Close(); }
    bool Open(QString *fallo) override;
    using Dataset::Open;

    // RecordView
    QString tableName() const override { return tableName_; }
    QString connectionName() const override { return ConnectionWord(); }
    QStringList keyFields() const override { return IndexFields(); }
    QStringList fieldNames() const override;
    ColumnKind fieldKind(const QString &field) const override;
    QVariant value(const QString &field) const override;

    // Statements this table has sent, for the paging tests and the benchmark.
    int StatementsRun() const { return statements_; }

protected:
    QList<ColumnInfo> srcOpen() override;
    void srcClose() override;
    bool srcFirst() override;
    bool srcLast() override;
    bool srcNext() override;
    bool srcPrior() override;
    const Row &srcRow() const override;
    Bookmark srcBookmark() const override;
    bool srcGoto(const Bookmark &bookmark) override;
    bool srcSeek(const QVariantList &values, bool nearest) override;
    qlonglong srcCount() override;
    qlonglong srcRecNo() override;
    void srcInvalidate() override;
    void srcBeginEdit(Row &row) override;
    void srcEndEdit(bool posted) override;
    bool srcInsert(const Row &row, bool append, const Bookmark &before) override;
    bool srcUpdate(const Row &original, const Row &row) override;
    bool srcDelete(const Row &row) override;
    std::optional<bool> srcLocate(const QStringList &fields, const QVariantList &values,
                                  LocateOptions options) override;

private:
    QString sqlName() const;
    QList<DeclaredColumn> probeColumns();
    QString literal(int field, const QVariant &value) const;
    QString tuple(const QStringList &fields) const;
    QString orderLiterals(const Row &row) const;
    QVariantList orderKey(const Row &row) const;
    QStringList rangeConditions() const;
    QString keyCondition(const Row &row) const;
    std::vector<Row> fetch(const QStringList &conditions, bool descending, int limit);
    std::optional<Row> readRow(const Row &keyRow);
    QString run(const QString &sql);
    void lockRow(const Row &row);
    void endTransaction(bool commit);
    void computeOrder();
    bool loadFrom(const QVariantList &key, bool inclusive);
    void trimFront();
    void trimBack();

    TModuloDatos &datos_;
    QString tableName_;
    QString databaseName_;
    QStringList columns_;
    QStringList primaryKey_;
    QStringList orderFields_;
    QList<int> orderIndexes_;
    QList<int> keyIndexes_;

    std::deque<Row> window_;
    std::size_t pos_ = 0;
    bool atStart_ = false; // window_ begins at the first row of the range
    bool atEnd_ = false;   // window_ ends at the last row of the range
    bool ownTransaction_ = false;
    int statements_ = 0;
};

} // namespace co::forms
