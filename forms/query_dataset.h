#pragma once
// `Query`: a dataset holding the rows of one statement, read when it opens.
// Its rows are its own: posting changes them in memory only (the database is
// written by statements, `ExecSQL`). Order is the statement's; ranges and key
// search use IndexFieldNames over those rows.
//
// With `PacketRecords` above 0 the rows come in packets: the first at opening,
// the next when a move passes the last row read; counting, going to the last
// row or appending reads the rest. Each packet is a statement of its own, so
// no cursor stays open between packets. Such a statement must carry no row
// limit of its own and must order its rows totally (its ORDER BY ends on a
// unique key), or packets may repeat or miss rows.

#include "core/database.h"
#include "forms/dataset.h"

#include <vector>

namespace co::forms {

class Query : public Dataset {
public:
    explicit Query(TModuloDatos &datos, QString name = QStringLiteral("Query1"));

    QString SQL;
    QString DatabaseName; // connection word
    int PacketRecords = -1; // rows a statement reads; -1 all at once

    // Rows held so far; below the answer's size while packets are still to come.
    qlonglong RecordsFetched() const { return static_cast<qlonglong>(rows_.size()); }

    // Runs SQL as a statement that returns no rows; raises EDatabaseError on failure.
    void ExecSQL();

    QStringList IndexFields() const override;
    QString KeyTableName() const override;
    QString ConnectionWord() const override;

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
    void srcInvalidate() override {}
    void srcBeginEdit(Row &) override {}
    void srcEndEdit(bool) override {}
    bool srcInsert(const Row &row, bool append, const Bookmark &before) override;
    bool srcUpdate(const Row &original, const Row &row) override;
    bool srcDelete(const Row &row) override;

private:
    struct Stored {
        qint64 id;
        Row row;
    };
    bool inRange(const Row &row) const;
    // Index of the next (step 1) or previous (step -1) row in range from `from`;
    // going forward past the rows read brings the next packet.
    long step(long from, int step);
    // Runs the statement for the next packet (or for all rows) and keeps its rows.
    QList<ColumnInfo> fetch();
    void fetchAll();

    TModuloDatos &datos_;
    std::vector<Stored> rows_;
    long pos_ = -1;
    qint64 nextId_ = 0;
    qlonglong fetched_ = 0; // rows the statements have answered so far
    bool complete_ = true;  // no packet left to read
};

} // namespace co::forms
