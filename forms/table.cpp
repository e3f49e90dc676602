#include "forms/table.h"

#include "core/result_text.h"
#include "core/sql_text.h"

#include <algorithm>

namespace co::forms {
namespace {

const QString kSilenciosa = QStringLiteral("Silenciosa");
const QString kRecordLocked = QStringLiteral("Record locked by another user");
const QString kRecordDeleted = QStringLiteral("Record/Key deleted");

// The failure text of a statement result: what follows "Motivo: ".
QString motivo(const QString &result) {
    const qsizetype at = result.indexOf(QStringLiteral("Motivo: "));
    return at < 0 ? result : result.mid(at + 8);
}

bool sameValues(const QList<int> &indexes, const QList<ColumnKind> &kinds, const QVariantList &a,
                const QVariantList &b) {
    for (int i = 0; i < indexes.size(); ++i)
        if (TextoValor(a[indexes[i]], kinds[i]) != TextoValor(b[i], kinds[i]))
            return false;
    return true;
}

} // namespace

Table::Table(TModuloDatos &datos, QString name, QString tableName)
    : Dataset(std::move(name)), datos_(datos), tableName_(std::move(tableName)) {}

Table::~Table() {
    if (ownTransaction_)
        endTransaction(false);
}

void Table::SetTableName(const QString &name) {
    if (Dataset::Active())
        throw EDatabaseError(QStringLiteral("Cannot perform this operation on an open dataset"));
    tableName_ = name;
}

QString Table::ConnectionWord() const {
    return databaseName_.isEmpty() ? datos_.BaseDatosDeTabla(tableName_) : databaseName_;
}

QString Table::sqlName() const {
    return datos_.NombreTablaSQL(tableName_);
}

bool Table::Open(QString *fallo) {
    try {
        Dataset::Open();
        return true;
    } catch (const EDatabaseError &e) {
        if (fallo)
            *fallo = e.Texto();
        return false;
    }
}

QStringList Table::IndexFields() const {
    if (!IndexFieldNames().isEmpty())
        return IndexFieldNames().split(u';', Qt::SkipEmptyParts);
    if (!IndexName().isEmpty()) {
        const QStringList fields =
            datos_.ClavePrimaria(tableName_, IndexName()).split(u';', Qt::SkipEmptyParts);
        if (!fields.isEmpty())
            return fields;
    }
    return primaryKey_;
}

QStringList Table::fieldNames() const {
    QStringList out;
    for (int i = 0; i < dataFieldCount(); ++i)
        out << FieldByIndex(i).FieldName();
    return out;
}

ColumnKind Table::fieldKind(const QString &field) const {
    const Field *f = FindField(field);
    return f ? f->Kind() : ColumnKind::Unknown;
}

QVariant Table::value(const QString &field) const {
    const Field *f = FindField(field);
    return f ? f->Value() : QVariant();
}

// ---- statements ----------------------------------------------------------

QString Table::run(const QString &sql) {
    ++statements_;
    const QString result = datos_.EjecutarSQL(sql, ConnectionWord(), kSilenciosa);
    if (EsResultadoError(result))
        throw EDatabaseError(motivo(result));
    return result;
}

QString Table::literal(int field, const QVariant &value) const {
    if (value.isNull())
        return QStringLiteral("NULL");
    return datos_.FormatoLiteralSQL(FieldByIndex(field).Converted(value));
}

QString Table::tuple(const QStringList &fields) const {
    return fields.size() == 1 ? fields.first() : u'(' + fields.join(QStringLiteral(", ")) + u')';
}

QString Table::orderLiterals(const Row &row) const {
    QStringList parts;
    for (int i : orderIndexes_)
        parts << literal(i, row[i]);
    return parts.size() == 1 ? parts.first() : u'(' + parts.join(QStringLiteral(", ")) + u')';
}

QVariantList Table::orderKey(const Row &row) const {
    QVariantList key;
    for (int i : orderIndexes_)
        key << row[i];
    return key;
}

QStringList Table::rangeConditions() const {
    QStringList out;
    const QStringList index = IndexFields();
    auto bound = [&](const QVariantList &values, const char *op) {
        if (values.isEmpty())
            return;
        QStringList literals;
        for (int i = 0; i < values.size(); ++i)
            literals << literal(fieldIndexOf(index[i]), values[i]);
        const QString lits = literals.size() == 1
                                 ? literals.first()
                                 : u'(' + literals.join(QStringLiteral(", ")) + u')';
        out << tuple(index.mid(0, values.size())) + u' ' + QLatin1String(op) + u' ' + lits;
    };
    bound(rangeStart(), ">=");
    bound(rangeEnd(), "<=");
    return out;
}

QString Table::keyCondition(const Row &row) const {
    QStringList parts;
    for (int i : keyIndexes_)
        parts << FieldByIndex(i).FieldName() + QStringLiteral(" = ") + literal(i, row[i]);
    return parts.join(QStringLiteral(" AND "));
}

std::vector<Dataset::Row> Table::fetch(const QStringList &conditions, bool descending, int limit) {
    QStringList where = rangeConditions() + conditions;
    QStringList order;
    for (const QString &f : orderFields_)
        order << (descending ? f + QStringLiteral(" DESC") : f);
    QString sql = QStringLiteral("SELECT ") + columns_.join(QStringLiteral(", ")) +
                  QStringLiteral(" FROM ") + sqlName();
    if (!where.isEmpty())
        sql += QStringLiteral(" WHERE ") + where.join(QStringLiteral(" AND "));
    sql += QStringLiteral(" ORDER BY ") + order.join(QStringLiteral(", "));
    if (limit > 0)
        sql += QStringLiteral(" LIMIT ") + QString::number(limit);
    Consulta q;
    q.SQL = sql;
    q.DatabaseName = ConnectionWord();
    ++statements_;
    if (!datos_.AbrirConsulta(q, QStringLiteral("Open,Silencio"))) {
        // The query object keeps no failure text: the statement layer tells it.
        run(sql);
        throw EDatabaseError(QStringLiteral("Table is busy"));
    }
    std::vector<Row> rows;
    rows.reserve(static_cast<std::size_t>(q.RecordCount()));
    for (int r = 0; r < q.RecordCount(); ++r)
        rows.push_back(q.Row(r));
    if (descending)
        std::reverse(rows.begin(), rows.end());
    return rows;
}

std::optional<Dataset::Row> Table::readRow(const Row &keyRow) {
    std::vector<Row> rows = fetch({keyCondition(keyRow)}, false, 1);
    if (rows.empty())
        return std::nullopt;
    return rows.front();
}

// ---- opening -------------------------------------------------------------

// The columns come from the catalog, remembered for the session, so that an
// opening sends no statement but its first page. A table the catalog does not
// know (not made yet) or with a type it cannot name is probed with a query,
// which also makes a missing table from its structure file.
QList<Dataset::ColumnInfo> Table::srcOpen() {
    if (tableName_.isEmpty())
        throw EDatabaseError(QStringLiteral("Table name is missing"));
    QList<DeclaredColumn> declared = ColumnasDeclaradas(datos_, tableName_, ConnectionWord());
    const bool known = !declared.isEmpty() &&
                       std::none_of(declared.cbegin(), declared.cend(), [](const DeclaredColumn &d) {
                           return d.type == TipoCampo::ftUnknown;
                       });
    if (!known)
        declared = probeColumns();
    columns_.clear();
    QList<ColumnInfo> out;
    for (const DeclaredColumn &d : std::as_const(declared)) {
        columns_ << d.name;
        ColumnInfo info;
        info.name = d.name;
        info.type = d.type;
        info.size = d.size;
        info.required = d.notNull;
        out << info;
    }
    primaryKey_ = datos_.ClavePrimaria(tableName_).split(u';', Qt::SkipEmptyParts);
    for (QString &k : primaryKey_)
        for (const QString &c : std::as_const(columns_))
            if (c.compare(k, Qt::CaseInsensitive) == 0)
                k = c;
    if (primaryKey_.isEmpty())
        throw EDatabaseError(QStringLiteral("No index currently active"));
    window_.clear();
    atStart_ = atEnd_ = false;
    orderIndexes_.clear();
    return out;
}

QList<DeclaredColumn> Table::probeColumns() {
    Consulta probe;
    probe.SQL = QStringLiteral("SELECT * FROM ") + sqlName() + QStringLiteral(" WHERE 1 = 0");
    probe.DatabaseName = ConnectionWord();
    ++statements_;
    if (!datos_.AbrirConsulta(probe, QStringLiteral("Open,Silencio"))) {
        const QString r = datos_.EjecutarSQL(probe.SQL, ConnectionWord(),
                                             QStringLiteral("Silenciosa,No Crear Tabla"));
        throw EDatabaseError(EsResultadoError(r) ? motivo(r)
                                                 : QStringLiteral("Table does not exist"));
    }
    QHash<QString, DeclaredColumn> declared;
    for (const DeclaredColumn &d : ColumnasDeclaradas(datos_, tableName_, ConnectionWord(), true))
        declared.insert(d.name.toLower(), d);
    QList<DeclaredColumn> out;
    for (const ResultColumn &c : probe.Fields()) {
        DeclaredColumn d = declared.value(c.name.toLower());
        d.name = c.name;
        if (d.type == TipoCampo::ftUnknown)
            d.type = TipoDeColumna(c.kind);
        out << d;
    }
    return out;
}

void Table::computeOrder() {
    orderFields_ = IndexFields();
    for (const QString &k : std::as_const(primaryKey_))
        if (!orderFields_.contains(k, Qt::CaseInsensitive))
            orderFields_ << k;
    orderIndexes_.clear();
    for (const QString &f : std::as_const(orderFields_)) {
        const int i = fieldIndexOf(f);
        if (i < 0)
            throw EDatabaseError(QStringLiteral("Field '%1' not found").arg(f));
        orderIndexes_ << i;
    }
    keyIndexes_.clear();
    for (const QString &f : std::as_const(primaryKey_))
        keyIndexes_ << fieldIndexOf(f);
}

void Table::srcClose() {
    if (ownTransaction_)
        endTransaction(false);
    window_.clear();
    atStart_ = atEnd_ = false;
}

void Table::srcInvalidate() {
    window_.clear();
    pos_ = 0;
    atStart_ = atEnd_ = false;
    computeOrder();
}

// ---- moves ---------------------------------------------------------------

bool Table::srcFirst() {
    if (orderIndexes_.isEmpty())
        computeOrder();
    if (atStart_ && !window_.empty()) {
        pos_ = 0;
        return true;
    }
    std::vector<Row> page = fetch({}, false, PageSize);
    window_.assign(page.begin(), page.end());
    pos_ = 0;
    atStart_ = true;
    atEnd_ = static_cast<int>(page.size()) < PageSize;
    return !window_.empty();
}

bool Table::srcLast() {
    if (orderIndexes_.isEmpty())
        computeOrder();
    if (atEnd_ && !window_.empty()) {
        pos_ = window_.size() - 1;
        return true;
    }
    std::vector<Row> page = fetch({}, true, PageSize);
    window_.assign(page.begin(), page.end());
    atEnd_ = true;
    atStart_ = static_cast<int>(page.size()) < PageSize;
    pos_ = window_.empty() ? 0 : window_.size() - 1;
    return !window_.empty();
}

void Table::trimFront() {
    const std::size_t max = static_cast<std::size_t>(std::max(PageSize, 1)) * 4;
    if (window_.size() <= max)
        return;
    const std::size_t drop = window_.size() - max;
    window_.erase(window_.begin(), window_.begin() + static_cast<std::ptrdiff_t>(drop));
    pos_ -= drop;
    atStart_ = false;
}

void Table::trimBack() {
    const std::size_t max = static_cast<std::size_t>(std::max(PageSize, 1)) * 4;
    if (window_.size() <= max)
        return;
    window_.resize(max);
    atEnd_ = false;
}

bool Table::srcNext() {
    if (window_.empty())
        return false;
    if (pos_ + 1 < window_.size()) {
        ++pos_;
        return true;
    }
    if (atEnd_)
        return false;
    std::vector<Row> page =
        fetch({tuple(orderFields_) + QStringLiteral(" > ") + orderLiterals(window_.back())}, false,
              PageSize);
    atEnd_ = static_cast<int>(page.size()) < PageSize;
    if (page.empty())
        return false;
    window_.insert(window_.end(), page.begin(), page.end());
    ++pos_;
    trimFront();
    return true;
}

bool Table::srcPrior() {
    if (window_.empty())
        return false;
    if (pos_ > 0) {
        --pos_;
        return true;
    }
    if (atStart_)
        return false;
    std::vector<Row> page =
        fetch({tuple(orderFields_) + QStringLiteral(" < ") + orderLiterals(window_.front())}, true,
              PageSize);
    atStart_ = static_cast<int>(page.size()) < PageSize;
    if (page.empty())
        return false;
    window_.insert(window_.begin(), page.begin(), page.end());
    pos_ = page.size() - 1;
    trimBack();
    return true;
}

const Dataset::Row &Table::srcRow() const {
    static const Row none;
    return window_.empty() ? none : window_[pos_];
}

Bookmark Table::srcBookmark() const {
    if (window_.empty())
        return {};
    return {orderKey(window_[pos_]), -1};
}

bool Table::loadFrom(const QVariantList &key, bool inclusive) {
    Row probe(dataFieldCount());
    for (int i = 0; i < orderIndexes_.size() && i < key.size(); ++i)
        probe[orderIndexes_[i]] = key[i];
    std::vector<Row> page =
        fetch({tuple(orderFields_) + (inclusive ? QStringLiteral(" >= ") : QStringLiteral(" > ")) +
               orderLiterals(probe)},
              false, PageSize);
    if (page.empty())
        return false;
    window_.assign(page.begin(), page.end());
    pos_ = 0;
    atStart_ = false;
    atEnd_ = static_cast<int>(page.size()) < PageSize;
    return true;
}

bool Table::srcGoto(const Bookmark &bookmark) {
    if (bookmark.key.size() != orderIndexes_.size())
        return false;
    auto same = [&](const Row &row) {
        for (int i = 0; i < orderIndexes_.size(); ++i)
            if (compareTyped(FieldByIndex(orderIndexes_[i]).Kind(), row[orderIndexes_[i]],
                             bookmark.key[i]) != 0)
                return false;
        return true;
    };
    for (std::size_t i = 0; i < window_.size(); ++i) {
        if (same(window_[i])) {
            pos_ = i;
            return true;
        }
    }
    const std::deque<Row> saved = window_;
    const std::size_t savedPos = pos_;
    const bool savedStart = atStart_, savedEnd = atEnd_;
    if (loadFrom(bookmark.key, true) && same(window_.front()))
        return true;
    window_ = saved;
    pos_ = savedPos;
    atStart_ = savedStart;
    atEnd_ = savedEnd;
    return false;
}

bool Table::srcSeek(const QVariantList &values, bool nearest) {
    const QStringList index = IndexFields();
    if (values.isEmpty() || values.size() > index.size())
        return nearest && srcFirst();
    QStringList literals;
    for (int i = 0; i < values.size(); ++i)
        literals << literal(fieldIndexOf(index[i]), values[i]);
    const QString lits =
        literals.size() == 1 ? literals.first() : u'(' + literals.join(QStringLiteral(", ")) + u')';
    std::vector<Row> page = fetch(
        {tuple(index.mid(0, values.size())) + QStringLiteral(" >= ") + lits}, false, PageSize);
    if (page.empty() || (!nearest && compareIndex(page.front(), values) != 0))
        return false;
    window_.assign(page.begin(), page.end());
    pos_ = 0;
    atStart_ = false;
    atEnd_ = static_cast<int>(page.size()) < PageSize;
    return true;
}

qlonglong Table::srcCount() {
    const QStringList where = rangeConditions();
    QString sql = QStringLiteral("SELECT COUNT(*) FROM ") + sqlName();
    if (!where.isEmpty())
        sql += QStringLiteral(" WHERE ") + where.join(QStringLiteral(" AND "));
    return run(sql).trimmed().toLongLong();
}

qlonglong Table::srcRecNo() {
    if (window_.empty())
        return 0;
    QStringList where = rangeConditions();
    where << tuple(orderFields_) + QStringLiteral(" < ") + orderLiterals(window_[pos_]);
    return run(QStringLiteral("SELECT COUNT(*) FROM ") + sqlName() + QStringLiteral(" WHERE ") +
               where.join(QStringLiteral(" AND ")))
               .trimmed()
               .toLongLong() +
           1;
}

std::optional<bool> Table::srcLocate(const QStringList &fields, const QVariantList &values,
                                     LocateOptions options) {
    if (options != 0)
        return std::nullopt;
    QStringList conditions;
    for (int i = 0; i < fields.size(); ++i) {
        const int f = fieldIndexOf(fields[i]);
        conditions << (values[i].isNull()
                           ? fields[i] + QStringLiteral(" IS NULL")
                           : fields[i] + QStringLiteral(" = ") + literal(f, values[i]));
    }
    std::vector<Row> rows = fetch(conditions, false, 1);
    if (rows.empty())
        return false;
    return srcGoto({orderKey(rows.front()), -1});
}

// ---- writes --------------------------------------------------------------

void Table::endTransaction(bool commit) {
    ownTransaction_ = false;
    TfGENEINIC &sesion = datos_.sesion();
    const bool ok = commit ? sesion.FinalizarTransaccion(ConnectionWord())
                           : sesion.CancelarTransaccion(ConnectionWord());
    if (!ok && commit) {
        sesion.CancelarTransaccion(ConnectionWord());
        throw EDatabaseError(QStringLiteral("Transaction could not be committed"));
    }
}

// Takes the row for this session until the transaction ends.
void Table::lockRow(const Row &row) {
    TfGENEINIC &sesion = datos_.sesion();
    if (!sesion.TransaccionActiva()) {
        if (!sesion.IniciarTransaccion(ConnectionWord()))
            throw EDatabaseError(QStringLiteral("Transaction could not be started"));
        ownTransaction_ = true;
    }
    const QString lockSuffix = traitsOf(sesion.backend()).recordLockSuffix;
    QString result;
    try {
        result = run(QStringLiteral("SELECT ") + primaryKey_.first() + QStringLiteral(" FROM ") +
                     sqlName() + QStringLiteral(" WHERE ") + keyCondition(row) + lockSuffix);
    } catch (...) {
        if (ownTransaction_)
            endTransaction(false);
        throw;
    }
    if (result.isEmpty()) {
        if (ownTransaction_)
            endTransaction(false);
        throw EDatabaseError(kRecordDeleted);
    }
}

void Table::srcBeginEdit(Row &row) {
    if (traitsOf(datos_.sesion().backend()).pessimisticRecords)
        lockRow(row);
    // The edit starts from the row as it is now, not as it was paged in.
    std::optional<Row> fresh;
    try {
        fresh = readRow(row);
    } catch (...) {
        if (ownTransaction_)
            endTransaction(false);
        throw;
    }
    if (!fresh) {
        if (ownTransaction_)
            endTransaction(false);
        throw EDatabaseError(kRecordDeleted);
    }
    row = *fresh;
    if (!window_.empty())
        window_[pos_] = row;
}

void Table::srcEndEdit(bool posted) {
    if (ownTransaction_)
        endTransaction(posted);
}

bool Table::srcInsert(const Row &row, bool, const Bookmark &before) {
    QStringList names, values;
    for (int i = 0; i < dataFieldCount(); ++i) {
        if (row[i].isNull())
            continue;
        names << FieldByIndex(i).FieldName();
        values << literal(i, row[i]);
    }
    if (names.isEmpty())
        throw EDatabaseError(
            QStringLiteral("Field '%1' must have a value").arg(primaryKey_.first()));
    run(QStringLiteral("INSERT INTO ") + sqlName() + QStringLiteral(" (") +
        names.join(QStringLiteral(", ")) + QStringLiteral(") VALUES (") +
        values.join(QStringLiteral(", ")) + u')');
    window_.clear();
    atStart_ = atEnd_ = false;
    if (srcGoto({orderKey(row), -1}))
        return true;
    // Written outside the range: back where the insert began.
    return (before.IsValid() && srcGoto(before)) || srcFirst();
}

bool Table::srcUpdate(const Row &original, const Row &row) {
    QStringList sets;
    for (int i = 0; i < dataFieldCount(); ++i) {
        const ColumnKind kind = FieldByIndex(i).Kind();
        if (TextoValor(original[i], kind) != TextoValor(row[i], kind) ||
            original[i].isNull() != row[i].isNull())
            sets << FieldByIndex(i).FieldName() + QStringLiteral(" = ") + literal(i, row[i]);
    }
    const QString update = QStringLiteral("UPDATE ") + sqlName() + QStringLiteral(" SET ") +
                           sets.join(QStringLiteral(", ")) + QStringLiteral(" WHERE ") +
                           keyCondition(original);
    TfGENEINIC &sesion = datos_.sesion();
    if (traitsOf(sesion.backend()).pessimisticRecords) {
        // The lock keeps other sessions off the row, not a statement of this one.
        if (!readRow(original))
            throw EDatabaseError(kRecordDeleted);
        if (!sets.isEmpty())
            run(update);
    } else {
        // No lock was taken: the row must still be as it was read.
        const bool own = !sesion.TransaccionActiva() && sesion.IniciarTransaccion(ConnectionWord());
        auto rollback = [&] {
            if (own)
                sesion.CancelarTransaccion(ConnectionWord());
        };
        try {
            const std::optional<Row> now = readRow(original);
            if (!now)
                throw EDatabaseError(kRecordDeleted);
            QList<int> all;
            QList<ColumnKind> kinds;
            for (int i = 0; i < dataFieldCount(); ++i) {
                all << i;
                kinds << FieldByIndex(i).Kind();
            }
            if (!sameValues(all, kinds, original, *now))
                throw EDatabaseError(kRecordLocked +
                                     QStringLiteral(". The row changed after it was read"));
            if (!sets.isEmpty())
                run(update);
        } catch (...) {
            rollback();
            throw;
        }
        if (own && !sesion.FinalizarTransaccion(ConnectionWord())) {
            sesion.CancelarTransaccion(ConnectionWord());
            throw EDatabaseError(QStringLiteral("Transaction could not be committed"));
        }
    }
    window_.clear();
    atStart_ = atEnd_ = false;
    return srcGoto({orderKey(row), -1}) || srcFirst();
}

bool Table::srcDelete(const Row &row) {
    TfGENEINIC &sesion = datos_.sesion();
    const bool pessimistic = traitsOf(sesion.backend()).pessimisticRecords;
    if (pessimistic && !ownTransaction_)
        lockRow(row);
    try {
        run(QStringLiteral("DELETE FROM ") + sqlName() + QStringLiteral(" WHERE ") +
            keyCondition(row));
    } catch (...) {
        if (ownTransaction_)
            endTransaction(false);
        throw;
    }
    if (ownTransaction_)
        endTransaction(true);
    window_.clear();
    atStart_ = atEnd_ = false;
    return loadFrom(orderKey(row), false) || srcLast();
}

} // namespace co::forms
