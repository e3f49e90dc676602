// The dataset's index, ranges, key lookups, Locate and bookmarks (dataset.h).
#include "forms/dataset.h"

#include "core/result_text.h"

namespace co::forms {

// ---- index, ranges, keys -------------------------------------------------

void Dataset::SetIndexName(const QString &name) {
    if (Active())
        checkBrowseMode();
    indexName_ = name;
    indexFieldNames_.clear();
    rangeStart_.clear();
    rangeEnd_.clear();
    rangeChanged();
}

void Dataset::SetIndexFieldNames(const QString &names) {
    if (Active())
        checkBrowseMode();
    indexFieldNames_ = names;
    indexName_.clear();
    rangeStart_.clear();
    rangeEnd_.clear();
    rangeChanged();
}

void Dataset::SetRange(const QVariantList &start, const QVariantList &end) {
    if (Active())
        checkBrowseMode();
    const QStringList index = IndexFields();
    if (start.size() > index.size() || end.size() > index.size())
        throw EDatabaseError(QStringLiteral("Too many key fields for the active index"));
    rangeStart_ = start;
    rangeEnd_ = end;
    rangeChanged();
}

void Dataset::CancelRange() {
    if (!HasRange())
        return;
    if (Active())
        checkBrowseMode();
    rangeStart_.clear();
    rangeEnd_.clear();
    rangeChanged();
}

void Dataset::rangeChanged() {
    if (!Active())
        return;
    srcInvalidate();
    First();
}

void Dataset::SetKey() {
    checkBrowseMode();
    keyBuffer_ = QVariantList(dataFields_);
    setState(DatasetState::SetKey);
}

QVariantList Dataset::valoresClave() const {
    QVariantList values;
    for (const QString &name : IndexFields()) {
        const int i = fieldIndexOf(name);
        if (i < 0 || keyBuffer_[i].isNull())
            break;
        values << keyBuffer_[i];
    }
    return values;
}

bool Dataset::GotoKey() {
    checkActive();
    if (state_ != DatasetState::SetKey)
        throw EDatabaseError(QStringLiteral("Dataset not in edit or insert mode"));
    const QVariantList values = valoresClave();
    setState(DatasetState::Browse);
    fire(QStringLiteral("BeforeScroll"));
    const Bookmark here = empty_ ? Bookmark() : srcBookmark();
    bool found = !values.isEmpty() && srcSeek(values, false) && accepted(srcRow());
    if (!found) {
        if (here.IsValid())
            srcGoto(here);
        return false;
    }
    empty_ = false;
    bof_ = eof_ = false;
    loadCurrent();
    fireDataChange(nullptr);
    fire(QStringLiteral("AfterScroll"));
    return true;
}

void Dataset::GotoNearest() {
    checkActive();
    const QVariantList values = state_ == DatasetState::SetKey ? valoresClave() : QVariantList();
    setState(DatasetState::Browse);
    fire(QStringLiteral("BeforeScroll"));
    bool found = srcSeek(values, true);
    if (found && !accepted(srcRow()))
        found = nextAccepted();
    if (!found)
        found = lastAccepted();
    empty_ = !found;
    bof_ = false;
    eof_ = empty_;
    if (found)
        loadCurrent();
    fireDataChange(nullptr);
    fire(QStringLiteral("AfterScroll"));
}

bool Dataset::FindKey(const QVariantList &values) {
    ponerClave(values);
    return GotoKey();
}

void Dataset::FindNearest(const QVariantList &values) {
    ponerClave(values);
    GotoNearest();
}

void Dataset::ponerClave(const QVariantList &values) {
    SetKey();
    const QStringList index = IndexFields();
    try {
        for (int i = 0; i < values.size() && i < index.size(); ++i)
            FieldByName(index[i]).SetValue(values[i]);
    } catch (...) {
        setState(DatasetState::Browse);
        throw;
    }
}

int Dataset::compareTyped(ColumnKind kind, const QVariant &a, const QVariant &b) {
    if (a.isNull() || b.isNull())
        return int(!a.isNull()) - int(!b.isNull());
    switch (kind) {
    case ColumnKind::Integer:
    case ColumnKind::Float: {
        const double x = a.toDouble(), y = b.toDouble();
        return x < y ? -1 : x > y ? 1 : 0;
    }
    case ColumnKind::DateTime: {
        const QDateTime x = a.toDateTime(), y = b.toDateTime();
        return x < y ? -1 : x > y ? 1 : 0;
    }
    case ColumnKind::Boolean:
        return int(a.toBool()) - int(b.toBool());
    default:
        return QString::compare(a.toString(), b.toString());
    }
}

int Dataset::compareIndex(const Row &row, const QVariantList &values) const {
    const QStringList index = IndexFields();
    for (int i = 0; i < values.size() && i < index.size(); ++i) {
        const int f = fieldIndexOf(index[i]);
        if (f < 0)
            throw EDatabaseError(QStringLiteral("Field '%1' not found").arg(index[i]));
        const Field &field = FieldByIndex(f);
        const int c = compareTyped(field.Kind(), row[f], field.Converted(values[i]));
        if (c != 0)
            return c;
    }
    return 0;
}

// ---- search and bookmarks ------------------------------------------------

bool Dataset::Locate(const QString &fields, const QVariantList &values, LocateOptions options) {
    checkBrowseMode();
    const QStringList names = fields.split(u';', Qt::SkipEmptyParts);
    QList<int> indexes;
    for (const QString &n : names)
        indexes << FieldByName(n.trimmed()).Index();
    if (indexes.size() != values.size())
        throw EDatabaseError(QStringLiteral("Locate: %1 fields and %2 values")
                                 .arg(indexes.size())
                                 .arg(values.size()));
    QVariantList converted;
    for (int i = 0; i < indexes.size(); ++i)
        converted << FieldByIndex(indexes[i]).Converted(values[i]);

    auto matches = [&](const Row &row) {
        for (int i = 0; i < indexes.size(); ++i) {
            const Field &f = FieldByIndex(indexes[i]);
            if (options == 0) {
                if (compareTyped(f.Kind(), row[indexes[i]], converted[i]) != 0)
                    return false;
                continue;
            }
            const QString have = TextoValor(row[indexes[i]], f.Kind());
            const QString want = TextoValor(converted[i], f.Kind());
            const Qt::CaseSensitivity cs = options & int(LocateOption::CaseInsensitive)
                                               ? Qt::CaseInsensitive
                                               : Qt::CaseSensitive;
            const bool ok = options & int(LocateOption::PartialKey) ? have.startsWith(want, cs)
                                                                    : have.compare(want, cs) == 0;
            if (!ok)
                return false;
        }
        return true;
    };

    const Bookmark here = empty_ ? Bookmark() : srcBookmark();
    std::optional<bool> bySource;
    if (!filtered_ || filter_.IsEmpty()) {
        QStringList fieldNames;
        for (int i : indexes)
            fieldNames << FieldByIndex(i).FieldName();
        bySource = srcLocate(fieldNames, converted, options);
    }
    bool found;
    if (bySource) {
        found = *bySource;
    } else {
        found = firstAccepted();
        while (found && !matches(srcRow()))
            found = nextAccepted();
    }
    if (!found) {
        if (here.IsValid())
            srcGoto(here);
        return false;
    }
    fire(QStringLiteral("BeforeScroll"));
    empty_ = false;
    bof_ = eof_ = false;
    loadCurrent();
    fireDataChange(nullptr);
    fire(QStringLiteral("AfterScroll"));
    return true;
}

Bookmark Dataset::GetBookmark() const {
    if (!Active() || empty_)
        return {};
    return srcBookmark();
}

bool Dataset::BookmarkValid(const Bookmark &bookmark) {
    checkActive();
    if (!bookmark.IsValid())
        return false;
    const Bookmark here = empty_ ? Bookmark() : srcBookmark();
    const bool ok = srcGoto(bookmark) && accepted(srcRow());
    if (here.IsValid())
        srcGoto(here);
    return ok;
}

void Dataset::GotoBookmark(const Bookmark &bookmark) {
    checkBrowseMode();
    if (!bookmark.IsValid() || !srcGoto(bookmark))
        throw EDatabaseError(QStringLiteral("Record not found"));
    fire(QStringLiteral("BeforeScroll"));
    empty_ = false;
    bof_ = eof_ = false;
    loadCurrent();
    fireDataChange(nullptr);
    fire(QStringLiteral("AfterScroll"));
}

} // namespace co::forms
