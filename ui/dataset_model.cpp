#include "ui/dataset_model.h"

#include "forms/shown_choices.h"

#include <algorithm>

namespace co::ui {

using forms::DatasetState;

DatasetModel::DatasetModel(forms::DBGrid &grid,
                           std::function<bool(const std::function<void()> &)> run, QObject *parent)
    : QAbstractTableModel(parent), grid_(grid), run_(std::move(run)) {
    // A closed dataset may still hold the fields of the last table it opened.
    if (grid_.Columns.isEmpty() && dataset() && dataset()->Active())
        grid_.DefaultColumns();
    for (int i = 0; i < grid_.Columns.size(); ++i)
        if (grid_.Columns[i].Visible)
            columns_ << i;
    shown_ = grid_.Columns;
    reload();
}

namespace {

bool mismaColumna(const forms::GridColumn &a, const forms::GridColumn &b) {
    return a.FieldName == b.FieldName && a.Title == b.Title && a.PickList == b.PickList &&
           a.ReadOnly == b.ReadOnly && a.Visible == b.Visible && a.Width == b.Width;
}

} // namespace

bool DatasetModel::columnasCambiadas() const {
    return !std::equal(shown_.cbegin(), shown_.cend(), grid_.Columns.cbegin(), grid_.Columns.cend(),
                       mismaColumna);
}

void DatasetModel::rehacerColumnas() {
    beginResetModel();
    columns_.clear();
    for (int i = 0; i < grid_.Columns.size(); ++i)
        if (grid_.Columns[i].Visible)
            columns_ << i;
    shown_ = grid_.Columns;
    endResetModel();
}

void DatasetModel::anchoUsuario(int modelColumn, int width) {
    const int g = gridColumn(modelColumn);
    if (g < 0 || g >= grid_.Columns.size() || g >= shown_.size())
        return;
    grid_.Columns[g].Width = width;
    shown_[g].Width = width;
}

void DatasetModel::moverColumna(int fromModel, int toModel) {
    if (fromModel == toModel || fromModel < 0 || toModel < 0 || fromModel >= columns_.size() ||
        toModel >= columns_.size())
        return;
    // The shown columns take their new order in the places they held; hidden
    // ones stay where they were.
    QList<int> orden = columns_;
    orden.move(fromModel, toModel);
    const QList<forms::GridColumn> antes = grid_.Columns;
    const int seleccionada = grid_.SelectedIndex;
    for (int i = 0; i < columns_.size(); ++i) {
        grid_.Columns[columns_[i]] = antes[orden[i]];
        if (orden[i] == seleccionada)
            grid_.SelectedIndex = columns_[i];
    }
    rehacerColumnas();
}

int DatasetModel::rowCount(const QModelIndex &parent) const {
    if (parent.isValid())
        return 0;
    return static_cast<int>(rows_.size()) + (insertRow_ ? 1 : 0);
}

int DatasetModel::columnCount(const QModelIndex &parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

QString DatasetModel::text(int row, int gridColumn) const {
    forms::Dataset *d = dataset();
    if (!d)
        return {};
    const forms::Field *f = d->FindField(grid_.Columns[gridColumn].FieldName);
    const bool live = d->IsPending() && (row == rows_.size() || row == currentRow());
    if (live)
        return f && f->DataType() != TipoCampo::ftMemo ? f->DisplayText()
                                                       : cellText(f, d->CurrentRecord());
    return row < rows_.size() ? cellText(f, rows_[row]) : QString();
}

// A record's text for a column: memos as a mark, or on one line.
QString DatasetModel::cellText(const forms::Field *f, const QVariantList &record) const {
    if (!f)
        return {};
    if (f->DataType() != TipoCampo::ftMemo)
        return f->DisplayTextOf(record);
    if (!grid_.MemosEnLinea)
        return QStringLiteral(" ...");
    QString texto = f->TextOf(record.value(f->Index()));
    texto.replace(QStringLiteral("\r\n"), QStringLiteral(" "))
        .replace(u'\n', u' ')
        .replace(u'\r', u' ');
    return texto;
}

QVariant DatasetModel::data(const QModelIndex &index, int role) const {
    if (!index.isValid())
        return {};
    const int g = gridColumn(index.column());
    if (role == Qt::TextAlignmentRole) {
        const forms::Field *f =
            dataset() ? dataset()->FindField(grid_.Columns[g].FieldName) : nullptr;
        const Qt::Alignment horizontal = f && f->IsNumeric() ? Qt::AlignRight : Qt::AlignLeft;
        return QVariant::fromValue(horizontal | Qt::AlignVCenter);
    }
    if (role != Qt::DisplayRole && role != Qt::EditRole)
        return {};
    if (role == Qt::EditRole && dataset())
        if (forms::Field *f = dataset()->FindField(grid_.Columns[g].FieldName);
            f && index.row() == currentRow())
            return f->AsString();
    const forms::GridColumn &columna = grid_.Columns[g];
    // A pick list shows its values as translated; the field holds them as stored.
    if (role == Qt::DisplayRole && !columna.PickListMostrada.isEmpty())
        return forms::ValorMostrado(columna.PickList, columna.PickListMostrada, text(index.row(), g));
    return text(index.row(), g);
}

QVariant DatasetModel::headerData(int section, Qt::Orientation o, int role) const {
    if (role != Qt::DisplayRole)
        return {};
    if (o == Qt::Vertical)
        return section + 1;
    const forms::GridColumn &c = grid_.Columns.value(gridColumn(section));
    return c.Title.isEmpty() ? c.FieldName : c.Title;
}

Qt::ItemFlags DatasetModel::flags(const QModelIndex &index) const {
    Qt::ItemFlags f = QAbstractTableModel::flags(index);
    const forms::Dataset *d = dataset();
    const forms::GridColumn &c = grid_.Columns.value(gridColumn(index.column()));
    if (d && !d->ReadOnly && !grid_.ReadOnly && !c.ReadOnly)
        f |= Qt::ItemIsEditable;
    return f;
}

bool DatasetModel::setData(const QModelIndex &index, const QVariant &value, int role) {
    forms::Dataset *d = dataset();
    rechazada_ = true;
    if (!d || role != Qt::EditRole || !moveTo(index.row()))
        return false;
    const QString field = grid_.Columns[gridColumn(index.column())].FieldName;
    const bool ok = run_([&] {
        if (!d->IsPending())
            d->Edit();
        d->FieldByName(field).SetAsString(value.toString());
    });
    rechazada_ = !ok;
    Q_EMIT dataChanged(this->index(index.row(), 0), this->index(index.row(), columnCount() - 1));
    return ok;
}

bool DatasetModel::canFetchMore(const QModelIndex &parent) const {
    return !parent.isValid() && !atEnd_;
}

void DatasetModel::fetchMore(const QModelIndex &parent) {
    if (parent.isValid() || atEnd_)
        return;
    forms::Dataset *d = dataset();
    if (!d || d->IsPending())
        return;
    const int before = static_cast<int>(rows_.size());
    const forms::Bookmark here = d->GetBookmark();
    QList<QVariantList> more;
    QList<forms::Bookmark> marks;
    run_([&] {
        d->GotoBookmark(marks_.last());
        d->Next();
        readFromCurrent(kChunk, more, marks);
        d->GotoBookmark(here);
    });
    if (more.isEmpty()) {
        atEnd_ = true;
        return;
    }
    beginInsertRows({}, before, before + static_cast<int>(more.size()) - 1);
    rows_ << more;
    marks_ << marks;
    endInsertRows();
}

void DatasetModel::readFromCurrent(int count, QList<QVariantList> &records,
                                   QList<forms::Bookmark> &marks) {
    forms::Dataset *d = dataset();
    // No move past the last row wanted: it would read the next page to learn
    // whether there is one. A later fetch that finds nothing sets the end.
    for (int n = 0; !d->Eof() && n < count; ++n) {
        marks << d->GetBookmark();
        records << d->CurrentRecord();
        if (n + 1 < count)
            d->Next();
    }
    atEnd_ = d->Eof();
}

void DatasetModel::readChunk(int count) {
    forms::Dataset *d = dataset();
    rows_.clear();
    marks_.clear();
    atEnd_ = true;
    if (!d || !d->Active() || d->IsEmpty())
        return;
    if (d->IsPending())
        return; // moving off would post; show the pending record only
    const forms::Bookmark here = d->GetBookmark();
    run_([&] {
        d->First();
        readFromCurrent(count, rows_, marks_);
        if (here.IsValid())
            d->GotoBookmark(here);
    });
}

void DatasetModel::reload() {
    beginResetModel();
    readChunk(std::max<int>(kChunk, static_cast<int>(rows_.size())));
    const forms::Dataset *d = dataset();
    insertRow_ = d && d->Active() && d->State() == DatasetState::Insert;
    endResetModel();
}

void DatasetModel::sync() {
    const forms::Dataset *d = dataset();
    const bool inserting = d && d->Active() && d->State() == DatasetState::Insert;
    const int last = static_cast<int>(rows_.size());
    if (inserting && !insertRow_) {
        beginInsertRows({}, last, last);
        insertRow_ = true;
        endInsertRows();
    } else if (!inserting && insertRow_) {
        beginRemoveRows({}, last, last);
        insertRow_ = false;
        endRemoveRows();
    }
    const int row = currentRow();
    if (d && d->IsPending() && row >= 0 && columnCount() > 0)
        Q_EMIT dataChanged(index(row, 0), index(row, columnCount() - 1));
}

forms::Field *DatasetModel::field(int modelColumn) const {
    const int g = gridColumn(modelColumn);
    return dataset() && g >= 0 ? dataset()->FindField(grid_.Columns[g].FieldName) : nullptr;
}

int DatasetModel::currentRow() const {
    const forms::Dataset *d = dataset();
    if (!d || !d->Active())
        return -1;
    if (d->State() == DatasetState::Insert)
        return static_cast<int>(rows_.size());
    return static_cast<int>(marks_.indexOf(d->GetBookmark()));
}

bool DatasetModel::moveTo(int row) {
    forms::Dataset *d = dataset();
    if (!d || row == currentRow())
        return true;
    if (row < 0 || row >= marks_.size())
        return false;
    return run_([&] { d->GotoBookmark(marks_[row]); });
}

} // namespace co::ui
