#include "forms/query_dataset.h"

#include "core/connection_words.h"
#include "core/text_utils.h"

namespace co::forms {

Query::Query(TModuloDatos &datos, QString name) : Dataset(std::move(name)), datos_(datos) {}

QStringList Query::IndexFields() const {
    return IndexFieldNames().split(u';', Qt::SkipEmptyParts);
}

QString Query::KeyTableName() const {
    return TablaDeConsulta(SQL);
}

QString Query::ConnectionWord() const {
    return DatabaseName.isEmpty() ? kConexionEmpresa : DatabaseName;
}

void Query::ExecSQL() {
    const QString r = datos_.EjecutarSQL(SQL, ConnectionWord(), QStringLiteral("Silenciosa"));
    if (EsResultadoError(r))
        throw EDatabaseError(r.section(QStringLiteral("Motivo: "), 1));
}

QList<Dataset::ColumnInfo> Query::srcOpen() {
    rows_.clear();
    pos_ = -1;
    fetched_ = 0;
    complete_ = false;
    return fetch();
}

// Packets re-run the statement with LIMIT and OFFSET rather than continuing
// from the last row's order values (keyset): the order fields the user picks
// may be null, and a null compares as unknown, so a keyset condition would lose
// those rows. An offset over an order made total by a unique key gives each
// row exactly once, duplicate order values included, as long as the rows do
// not change between packets.
QList<Dataset::ColumnInfo> Query::fetch() {
    Consulta q;
    q.SQL = PacketRecords > 0
                ? SQL + QStringLiteral(" LIMIT %1 OFFSET %2").arg(PacketRecords).arg(fetched_)
                : SQL;
    q.DatabaseName = ConnectionWord();
    if (!datos_.AbrirConsulta(q, QStringLiteral("Open,Silencio"))) {
        const QString r = datos_.EjecutarSQL(q.SQL, ConnectionWord(),
                                             QStringLiteral("Silenciosa,No Crear Tabla"));
        throw EDatabaseError(EsResultadoError(r) ? r.section(QStringLiteral("Motivo: "), 1)
                                                 : QStringLiteral("No SQL statement available"));
    }
    QList<ColumnInfo> out;
    for (const ResultColumn &c : q.Fields())
        out << ColumnInfo{c.name, TipoDeColumna(c.kind), 0, false};
    rows_.reserve(rows_.size() + static_cast<std::size_t>(q.RecordCount()));
    for (int r = 0; r < q.RecordCount(); ++r) {
        Row row;
        for (int c = 0; c < q.Fields().size(); ++c)
            row << q.Value(r, c);
        rows_.push_back({nextId_++, std::move(row)});
    }
    fetched_ += q.RecordCount();
    complete_ = PacketRecords <= 0 || q.RecordCount() < PacketRecords;
    return out;
}

void Query::fetchAll() {
    while (!complete_)
        fetch();
}

void Query::srcClose() {
    rows_.clear();
    pos_ = -1;
    complete_ = true;
}

bool Query::inRange(const Row &row) const {
    if (!rangeStart().isEmpty() && compareIndex(row, rangeStart()) < 0)
        return false;
    if (!rangeEnd().isEmpty() && compareIndex(row, rangeEnd()) > 0)
        return false;
    return true;
}

long Query::step(long from, int direction) {
    for (long i = from + direction; i >= 0; i += direction) {
        if (i >= static_cast<long>(rows_.size())) {
            if (direction < 0 || complete_)
                return -1;
            fetch();
            if (i >= static_cast<long>(rows_.size()))
                return -1;
        }
        if (inRange(rows_[static_cast<std::size_t>(i)].row))
            return i;
    }
    return -1;
}

bool Query::srcFirst() {
    const long i = step(-1, 1);
    if (i < 0)
        return false;
    pos_ = i;
    return true;
}

bool Query::srcLast() {
    fetchAll();
    const long i = step(static_cast<long>(rows_.size()), -1);
    if (i < 0)
        return false;
    pos_ = i;
    return true;
}

bool Query::srcNext() {
    const long i = pos_ < 0 ? -1 : step(pos_, 1);
    if (i < 0)
        return false;
    pos_ = i;
    return true;
}

bool Query::srcPrior() {
    const long i = pos_ < 0 ? -1 : step(pos_, -1);
    if (i < 0)
        return false;
    pos_ = i;
    return true;
}

const Dataset::Row &Query::srcRow() const {
    static const Row none;
    return pos_ < 0 ? none : rows_[static_cast<std::size_t>(pos_)].row;
}

Bookmark Query::srcBookmark() const {
    if (pos_ < 0)
        return {};
    return {{}, rows_[static_cast<std::size_t>(pos_)].id};
}

bool Query::srcGoto(const Bookmark &bookmark) {
    for (std::size_t i = 0; i < rows_.size(); ++i) {
        if (rows_[i].id == bookmark.id && inRange(rows_[i].row)) {
            pos_ = static_cast<long>(i);
            return true;
        }
    }
    return false;
}

bool Query::srcSeek(const QVariantList &values, bool nearest) {
    for (long i = step(-1, 1); i >= 0; i = step(i, 1)) {
        const int c = compareIndex(rows_[static_cast<std::size_t>(i)].row, values);
        if (c == 0 || (nearest && c > 0)) {
            pos_ = i;
            return true;
        }
    }
    return false;
}

qlonglong Query::srcCount() {
    qlonglong n = 0;
    for (long i = step(-1, 1); i >= 0; i = step(i, 1))
        ++n;
    return n;
}

qlonglong Query::srcRecNo() {
    qlonglong n = 0;
    for (long i = step(-1, 1); i >= 0; i = step(i, 1)) {
        ++n;
        if (i == pos_)
            return n;
    }
    return 0;
}

bool Query::srcInsert(const Row &row, bool append, const Bookmark &before) {
    if (append)
        fetchAll();
    std::size_t at = rows_.size();
    if (!append && before.IsValid()) {
        for (std::size_t i = 0; i < rows_.size(); ++i)
            if (rows_[i].id == before.id)
                at = i;
    }
    rows_.insert(rows_.begin() + static_cast<std::ptrdiff_t>(at), {nextId_++, row});
    pos_ = static_cast<long>(at);
    return true;
}

bool Query::srcUpdate(const Row &, const Row &row) {
    if (pos_ < 0)
        return false;
    rows_[static_cast<std::size_t>(pos_)].row = row;
    return true;
}

bool Query::srcDelete(const Row &) {
    if (pos_ < 0)
        return false;
    rows_.erase(rows_.begin() + pos_);
    const long next = step(pos_ - 1, 1);
    if (next >= 0) {
        pos_ = next;
        return true;
    }
    pos_ = step(pos_, -1);
    return pos_ >= 0;
}

} // namespace co::forms
