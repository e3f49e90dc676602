#include "forms/dataset.h"

#include "forms/field_limits.h"

namespace co::forms {
namespace {

const QStringList kEvents = {
    QStringLiteral("BeforeInsert"), QStringLiteral("AfterInsert"),  QStringLiteral("OnNewRecord"),
    QStringLiteral("BeforeEdit"),   QStringLiteral("AfterEdit"),    QStringLiteral("BeforePost"),
    QStringLiteral("AfterPost"),    QStringLiteral("BeforeCancel"), QStringLiteral("AfterCancel"),
    QStringLiteral("BeforeDelete"), QStringLiteral("AfterDelete"),  QStringLiteral("BeforeScroll"),
    QStringLiteral("AfterScroll"),  QStringLiteral("OnCalcFields"), QStringLiteral("OnStateChange"),
    QStringLiteral("OnDataChange"),
};

// Clears a flag however the scope is left.
struct FlagGuard {
    bool &flag;
    explicit FlagGuard(bool &f) : flag(f) { flag = true; }
    ~FlagGuard() { flag = false; }
};

} // namespace

QString NombreEstado(DatasetState state) {
    switch (state) {
    case DatasetState::Inactive:
        return QStringLiteral("dsInactive");
    case DatasetState::Browse:
        return QStringLiteral("dsBrowse");
    case DatasetState::Edit:
        return QStringLiteral("dsEdit");
    case DatasetState::Insert:
        return QStringLiteral("dsInsert");
    case DatasetState::SetKey:
        return QStringLiteral("dsSetKey");
    }
    return {};
}

Dataset::Dataset(QString name) : Component(ComponentKind::Dataset, std::move(name)) {}
Dataset::~Dataset() = default;

const QStringList &Dataset::EventNames() {
    return kEvents;
}

bool Dataset::SetHandler(const QString &event, DatasetEvent handler) {
    if (!kEvents.contains(event) || event == u"OnDataChange")
        return false;
    handlers_.insert(event, std::move(handler));
    return true;
}

bool Dataset::HasHandler(const QString &event) const {
    if (event == u"OnDataChange")
        return bool(onDataChange_);
    const auto it = handlers_.constFind(event);
    return it != handlers_.cend() && bool(*it);
}

void Dataset::fire(const QString &event) {
    const auto it = handlers_.constFind(event);
    if (it != handlers_.cend() && *it) {
        const DatasetEvent handler = *it; // a handler may replace itself
        handler(*this);
    }
}

void Dataset::fireDataChange(Field *field) {
    if (onDataChange_) {
        const DataChangeEvent handler = onDataChange_;
        handler(*this, field);
    }
}

void Dataset::setState(DatasetState state) {
    if (state_ == state)
        return;
    state_ = state;
    fire(QStringLiteral("OnStateChange"));
}

void Dataset::checkActive() const {
    if (!Active())
        throw EDatabaseError(QStringLiteral("Cannot perform this operation on a closed dataset"));
}

void Dataset::checkCanModify() const {
    if (ReadOnly)
        throw EDatabaseError(QStringLiteral("Cannot modify a read-only dataset"));
}

void Dataset::checkBrowseMode() {
    checkActive();
    if (state_ == DatasetState::Edit || state_ == DatasetState::Insert) {
        if (modified_)
            Post();
        else
            Cancel();
    } else if (state_ == DatasetState::SetKey) {
        setState(DatasetState::Browse);
    }
}

// ---- fields --------------------------------------------------------------

Field *Dataset::FindField(const QString &name) const {
    for (const auto &f : fields_)
        if (f->FieldName().compare(name, Qt::CaseInsensitive) == 0)
            return f.get();
    return nullptr;
}

Field &Dataset::FieldByName(const QString &name) const {
    Field *f = FindField(name);
    if (!f)
        throw EDatabaseError(QStringLiteral("Field '%1' not found").arg(name));
    return *f;
}

int Dataset::fieldIndexOf(const QString &name) const {
    const Field *f = FindField(name);
    return f ? f->Index() : -1;
}

QStringList Dataset::FieldNamesList() const {
    QStringList out;
    for (const auto &f : fields_)
        out << f->FieldName();
    return out;
}

Field &Dataset::AddCalculatedField(const QString &name, TipoCampo type, int size) {
    if (Active())
        throw EDatabaseError(QStringLiteral("Cannot perform this operation on an open dataset"));
    calculated_.push_back({name, type, size, false});
    auto f = std::make_unique<Field>(*this, static_cast<int>(fields_.size()), name, type);
    f->Calculated = true;
    f->Size = size;
    fields_.push_back(std::move(f));
    return *fields_.back();
}

QVariant Dataset::fieldValue(int index) const {
    const auto i = static_cast<qsizetype>(index);
    if (state_ == DatasetState::SetKey && index < dataFields_)
        return i < keyBuffer_.size() ? keyBuffer_[i] : QVariant();
    return i < buffer_.size() ? buffer_[i] : QVariant();
}

void Dataset::setFieldValue(int index, const QVariant &value) {
    checkActive();
    Field &f = FieldByIndex(index);
    if (f.Calculated) {
        buffer_[index] = value;
        return;
    }
    if (state_ == DatasetState::SetKey) {
        keyBuffer_[index] = value;
        return;
    }
    if (state_ != DatasetState::Edit && state_ != DatasetState::Insert)
        throw EDatabaseError(QStringLiteral("Dataset not in edit or insert mode"));
    if (f.ReadOnly)
        throw EDatabaseError(QStringLiteral("Field '%1' cannot be modified").arg(f.FieldName()));
    buffer_[index] = value;
    modified_ = true;
    calcFields();
    fireDataChange(&f);
}

void Dataset::calcFields() {
    if (calculated_.empty() || inCalc_)
        return;
    for (int i = dataFields_; i < FieldCount(); ++i)
        buffer_[i] = QVariant();
    FlagGuard guard(inCalc_);
    fire(QStringLiteral("OnCalcFields"));
}

void Dataset::loadCurrent() {
    buffer_ = srcRow();
    // Resizing a shared list copies it: only calculated fields need the room.
    if (buffer_.size() != FieldCount())
        buffer_.resize(FieldCount());
    calcFields();
}

// ---- lifecycle -----------------------------------------------------------

void Dataset::Open() {
    if (Active())
        return;
    const QList<ColumnInfo> columns = srcOpen();
    bool same = dataFields_ == columns.size();
    for (int i = 0; same && i < columns.size(); ++i)
        same =
            fields_[i]->FieldName() == columns[i].name && fields_[i]->DataType() == columns[i].type;
    if (!same) {
        // Columns changed: fields are made anew, calculated ones after them.
        fields_.clear();
        for (const ColumnInfo &c : columns) {
            auto f =
                std::make_unique<Field>(*this, static_cast<int>(fields_.size()), c.name, c.type);
            f->Size = c.size;
            f->Required = c.required;
            fields_.push_back(std::move(f));
        }
        for (const ColumnInfo &c : calculated_) {
            auto f =
                std::make_unique<Field>(*this, static_cast<int>(fields_.size()), c.name, c.type);
            f->Calculated = true;
            f->Size = c.size;
            fields_.push_back(std::move(f));
        }
        dataFields_ = static_cast<int>(columns.size());
    }
    state_ = DatasetState::Browse;
    modified_ = false;
    const bool found = firstAccepted();
    empty_ = !found;
    if (found)
        loadCurrent();
    else
        buffer_ = QVariantList(FieldCount());
    bof_ = true;
    eof_ = empty_;
    fire(QStringLiteral("OnStateChange"));
    fireDataChange(nullptr);
    fire(QStringLiteral("AfterScroll"));
}

void Dataset::Close() {
    if (!Active())
        return;
    if (state_ == DatasetState::Edit) {
        try {
            srcEndEdit(false);
        } catch (const EDatabaseError &) {
            // Closing goes on: the lock goes with the connection's transaction.
        }
    }
    srcClose();
    buffer_.clear();
    keyBuffer_.clear();
    original_.clear();
    modified_ = false;
    empty_ = bof_ = eof_ = true;
    setState(DatasetState::Inactive);
}

void Dataset::Refresh() {
    checkBrowseMode();
    const Bookmark here = empty_ ? Bookmark() : srcBookmark();
    srcInvalidate();
    bool found = here.IsValid() && srcGoto(here) && accepted(srcRow());
    if (!found)
        found = firstAccepted();
    empty_ = !found;
    if (found)
        loadCurrent();
    else
        buffer_ = QVariantList(FieldCount());
    bof_ = eof_ = empty_;
    fireDataChange(nullptr);
}

// ---- filter --------------------------------------------------------------

FilterLookup Dataset::lookupFor(const Row *row) const {
    return [this, row](const QString &name) -> std::optional<FilterOperand> {
        const Field *f = FindField(name);
        if (!f)
            return std::nullopt;
        QVariant v;
        if (row && f->Index() < row->size())
            v = (*row)[f->Index()];
        return FilterOperand{f->DataType(), v, f->IsHourField()};
    };
}

bool Dataset::accepted(const Row &row) const {
    return !filtered_ || filter_.IsEmpty() || filter_.Evaluate(lookupFor(&row));
}

void Dataset::SetFilter(const QString &text) {
    FilterExpression parsed = FilterExpression::Parse(text);
    if (filtered_ && Active())
        parsed.Validate(lookupFor(nullptr));
    filter_ = std::move(parsed);
    filterText_ = text;
    if (filtered_ && Active())
        First();
}

void Dataset::SetFiltered(bool on) {
    if (on && Active())
        filter_.Validate(lookupFor(nullptr));
    if (filtered_ == on)
        return;
    filtered_ = on;
    if (Active())
        First();
}

// ---- navigation ----------------------------------------------------------

bool Dataset::firstAccepted() {
    if (!srcFirst())
        return false;
    while (!accepted(srcRow()))
        if (!srcNext())
            return false;
    return true;
}

bool Dataset::lastAccepted() {
    if (!srcLast())
        return false;
    while (!accepted(srcRow()))
        if (!srcPrior())
            return false;
    return true;
}

bool Dataset::nextAccepted() {
    while (srcNext())
        if (accepted(srcRow()))
            return true;
    return false;
}

bool Dataset::priorAccepted() {
    while (srcPrior())
        if (accepted(srcRow()))
            return true;
    return false;
}

void Dataset::First() {
    irAlExtremo(false);
}

void Dataset::Last() {
    irAlExtremo(true);
}

void Dataset::irAlExtremo(bool ultimo) {
    checkBrowseMode();
    fire(QStringLiteral("BeforeScroll"));
    const bool found = ultimo ? lastAccepted() : firstAccepted();
    empty_ = !found;
    if (found)
        loadCurrent();
    else
        buffer_ = QVariantList(FieldCount());
    bof_ = ultimo ? !found : true;
    eof_ = ultimo ? true : !found;
    fireDataChange(nullptr);
    fire(QStringLiteral("AfterScroll"));
}

void Dataset::Next() {
    MoveBy(1);
}
void Dataset::Prior() {
    MoveBy(-1);
}

int Dataset::MoveBy(int distance) {
    checkBrowseMode();
    if (empty_) {
        bof_ = eof_ = true;
        return 0;
    }
    fire(QStringLiteral("BeforeScroll"));
    int moved = 0;
    const bool forward = distance > 0;
    while (moved != distance) {
        const Bookmark here = srcBookmark();
        const bool ok = forward ? nextAccepted() : priorAccepted();
        if (!ok) {
            // Skipped rows may have moved the source: back to the last good one.
            if (filtered_)
                srcGoto(here);
            (forward ? eof_ : bof_) = true;
            break;
        }
        moved += forward ? 1 : -1;
        bof_ = eof_ = false;
    }
    if (moved != 0) {
        loadCurrent();
        fireDataChange(nullptr);
        fire(QStringLiteral("AfterScroll"));
    }
    return moved;
}

qlonglong Dataset::RecordCount() {
    checkActive();
    if (!filtered_ || filter_.IsEmpty())
        return srcCount();
    const Bookmark here = empty_ ? Bookmark() : srcBookmark();
    qlonglong n = 0;
    for (bool ok = firstAccepted(); ok; ok = nextAccepted())
        ++n;
    if (here.IsValid())
        srcGoto(here);
    return n;
}

qlonglong Dataset::RecNo() {
    checkActive();
    if (empty_ || state_ == DatasetState::Insert)
        return 0;
    if (!filtered_ || filter_.IsEmpty())
        return srcRecNo();
    const Bookmark here = srcBookmark();
    qlonglong n = 1;
    for (bool ok = firstAccepted(); ok && !(srcBookmark() == here); ok = nextAccepted())
        ++n;
    srcGoto(here);
    return n;
}

// ---- writes --------------------------------------------------------------

void Dataset::Append() {
    beginInsert(true);
}
void Dataset::Insert() {
    beginInsert(false);
}

void Dataset::beginInsert(bool append) {
    checkBrowseMode();
    checkCanModify();
    fire(QStringLiteral("BeforeInsert"));
    fire(QStringLiteral("BeforeScroll"));
    beforeInsert_ = empty_ ? Bookmark() : srcBookmark();
    appendMode_ = append;
    buffer_ = QVariantList(FieldCount());
    modified_ = false;
    setState(DatasetState::Insert);
    try {
        fire(QStringLiteral("OnNewRecord"));
    } catch (...) {
        // A new record that could not be started is dropped.
        modified_ = false;
        if (!empty_)
            loadCurrent();
        setState(DatasetState::Browse);
        throw;
    }
    modified_ = false;
    bof_ = eof_ = false;
    calcFields();
    fireDataChange(nullptr);
    fire(QStringLiteral("AfterInsert"));
    fire(QStringLiteral("AfterScroll"));
}

void Dataset::Edit() {
    checkActive();
    if (state_ == DatasetState::Edit || state_ == DatasetState::Insert)
        return;
    if (state_ == DatasetState::SetKey)
        setState(DatasetState::Browse);
    if (empty_) {
        Insert();
        return;
    }
    checkCanModify();
    fire(QStringLiteral("BeforeEdit"));
    Row row = srcRow();
    srcBeginEdit(row);
    original_ = row;
    for (int i = 0; i < dataFields_; ++i)
        buffer_[i] = row[i];
    calcFields();
    modified_ = false;
    setState(DatasetState::Edit);
    fireDataChange(nullptr);
    fire(QStringLiteral("AfterEdit"));
}

void Dataset::Post() {
    checkActive();
    if (state_ == DatasetState::SetKey) {
        setState(DatasetState::Browse);
        return;
    }
    if (state_ != DatasetState::Edit && state_ != DatasetState::Insert)
        return;
    fire(QStringLiteral("BeforePost"));
    for (int i = 0; i < dataFields_; ++i)
        if (fields_[i]->Required && buffer_[i].isNull())
            throw EDatabaseError(
                QStringLiteral("Field '%1' must have a value").arg(fields_[i]->FieldName()));
    for (int i = 0; i < dataFields_; ++i)
        if (const QString problema = ProblemaValorCampo(*fields_[i]); !problema.isEmpty()) {
            if (!AvisoValorCampo)
                throw EValorCampo(problema);
            AvisoValorCampo(problema);
            Abort();
        }
    const Row row = buffer_.mid(0, dataFields_);
    bool positioned;
    if (state_ == DatasetState::Insert) {
        positioned = srcInsert(row, appendMode_, beforeInsert_);
    } else {
        positioned = srcUpdate(original_, row);
        srcEndEdit(true);
    }
    modified_ = false;
    empty_ = !positioned;
    bof_ = eof_ = empty_;
    if (positioned)
        loadCurrent();
    else
        buffer_ = QVariantList(FieldCount());
    setState(DatasetState::Browse);
    fireDataChange(nullptr);
    fire(QStringLiteral("AfterPost"));
}

void Dataset::Cancel() {
    checkActive();
    if (state_ == DatasetState::SetKey) {
        setState(DatasetState::Browse);
        return;
    }
    if (state_ != DatasetState::Edit && state_ != DatasetState::Insert)
        return;
    fire(QStringLiteral("BeforeCancel"));
    const bool wasInsert = state_ == DatasetState::Insert;
    if (!wasInsert)
        srcEndEdit(false);
    else if (beforeInsert_.IsValid())
        srcGoto(beforeInsert_);
    modified_ = false;
    if (!empty_)
        loadCurrent();
    else
        buffer_ = QVariantList(FieldCount());
    setState(DatasetState::Browse);
    fireDataChange(nullptr);
    fire(QStringLiteral("AfterCancel"));
}

void Dataset::Delete() {
    checkActive();
    if (state_ == DatasetState::Insert || state_ == DatasetState::SetKey) {
        Cancel();
        return;
    }
    if (empty_)
        throw EDatabaseError(QStringLiteral("Cannot perform this operation on an empty dataset"));
    checkCanModify();
    fire(QStringLiteral("BeforeDelete"));
    fire(QStringLiteral("BeforeScroll"));
    const Row row = state_ == DatasetState::Edit ? original_ : srcRow();
    bool found = srcDelete(row);
    if (found && !accepted(srcRow()))
        found = nextAccepted() || lastAccepted();
    empty_ = !found;
    modified_ = false;
    if (found)
        loadCurrent();
    else
        buffer_ = QVariantList(FieldCount());
    bof_ = eof_ = empty_;
    setState(DatasetState::Browse);
    fireDataChange(nullptr);
    fire(QStringLiteral("AfterDelete"));
    fire(QStringLiteral("AfterScroll"));
}

} // namespace co::forms
