#pragma once
// `Dataset`: a cursor over rows with `Field`s, the states, navigation, writes,
// ranges, filter, bookmarks, key search and the events. `Table` and `Query`
// give it their rows through the source primitives below; everything the
// screens see is decided here, so both behave alike.
//
// States: Inactive, Browse, Edit, Insert, SetKey; "pending" is Edit, Insert or
// SetKey. Events run in this order:
//   Insert/Append: BeforeInsert, BeforeScroll, state Insert (OnStateChange),
//                  OnNewRecord, OnDataChange, AfterInsert, AfterScroll
//   Edit:          BeforeEdit, (record lock), state Edit, AfterEdit
//   Post:          BeforePost, (required fields, write), state Browse, AfterPost
//   Cancel:        BeforeCancel, state Browse, AfterCancel
//   Delete:        BeforeDelete, BeforeScroll, (write), AfterDelete, AfterScroll
//   moves:         BeforeScroll, OnCalcFields, OnDataChange, AfterScroll
// Any handler may raise Abort(): the operation stops where it is and the record
// keeps its state (an Abort in OnNewRecord drops the new record). A refused
// write raises EDatabaseError and leaves the record pending.
// Moving off a pending record posts it when it was modified and cancels it
// otherwise; a new record that only OnNewRecord filled counts as unmodified.
//
// Filter: the filter text (see filter_expression.h) applies while Filtered is
// on; rows that fail it are skipped by every move and count.
// Range: SetRange on the leading fields of the active index (IndexName or
// IndexFieldNames; the primary key when neither is set), start and end included,
// compared as tuples over the fields given.

#include "core/backend.h"
#include "forms/component.h"
#include "forms/dataset_errors.h"
#include "forms/field.h"
#include "forms/filter_expression.h"

#include <QHash>
#include <QString>
#include <QStringList>
#include <QVariant>
#include <functional>
#include <memory>
#include <optional>
#include <vector>

namespace co::forms {

enum class DatasetState { Inactive, Browse, Edit, Insert, SetKey };

// "dsBrowse", "dsEdit", ... for messages and traces.
QString NombreEstado(DatasetState state);

// A place in a dataset that survives inserts and deletes of other rows.
struct Bookmark {
    QVariantList key; // order key of a table row
    qint64 id = -1;   // row id of a query row
    bool IsValid() const { return id >= 0 || !key.isEmpty(); }
    bool operator==(const Bookmark &o) const { return id == o.id && key == o.key; }
};

enum class LocateOption { CaseInsensitive = 1, PartialKey = 2 };
using LocateOptions = int;

using DatasetEvent = std::function<void(class Dataset &)>;
using DataChangeEvent = std::function<void(class Dataset &, Field *)>;

class Dataset : public Component {
public:
    explicit Dataset(QString name);
    ~Dataset() override;

    // ---- lifecycle
    void Open();
    void Close();
    bool Active() const { return state_ != DatasetState::Inactive; }
    DatasetState State() const { return state_; }
    bool IsPending() const {
        return state_ == DatasetState::Edit || state_ == DatasetState::Insert ||
               state_ == DatasetState::SetKey;
    }
    bool Modified() const { return modified_; }
    // Re-reads the rows, keeping the current record when it still exists.
    void Refresh();

    // ---- fields
    int FieldCount() const { return static_cast<int>(fields_.size()); }
    Field &FieldByIndex(int i) const { return *fields_.at(static_cast<std::size_t>(i)); }
    // Case-insensitive; nullptr when absent.
    // The display of float fields with tag 1000 or more (the two-currency
    // display) for a value of the field within a record of this dataset;
    // unset, they show by their format as any float.
    std::function<QString(const Field &, double valor, const QVariantList &registro)> TextoMoneda;
    Field *FindField(const QString &name) const;
    // Raises "Field '<name>' not found" when absent.
    Field &FieldByName(const QString &name) const;
    QStringList FieldNamesList() const;
    // A calculated field, filled by OnCalcFields; declared before Open.
    Field &AddCalculatedField(const QString &name, TipoCampo type, int size = 0);

    // ---- navigation
    void First();
    void Last();
    void Next();
    void Prior();
    // Moves up to `distance` records; returns how many it moved (signed).
    int MoveBy(int distance);
    bool Bof() const { return bof_; }
    bool Eof() const { return eof_; }
    bool IsEmpty() const { return empty_; }
    // Records that pass the range and the filter.
    qlonglong RecordCount();
    // 1-based place of the current record; 0 on an empty dataset or a new record.
    qlonglong RecNo();

    // ---- writes
    void Append();
    void Insert();
    void Edit();
    void Post();
    void Cancel();
    void Delete();
    bool ReadOnly = false;
    // Tells why a value cannot be written (field_limits.h). A post that meets
    // such a value calls it and raises the silent abort, the record staying
    // pending as typed; unset, the post raises EValorCampo with the message.
    std::function<void(const QString &)> AvisoValorCampo;

    // ---- index, ranges and key search
    QString IndexName() const { return indexName_; }
    void SetIndexName(const QString &name);
    QString IndexFieldNames() const { return indexFieldNames_; }
    void SetIndexFieldNames(const QString &names);
    // Fields of the active index, in order.
    virtual QStringList IndexFields() const = 0;
    void SetRange(const QVariantList &start, const QVariantList &end);
    void CancelRange();
    bool HasRange() const { return !rangeStart_.isEmpty() || !rangeEnd_.isEmpty(); }

    // Key buffer: in SetKey, fields write the values to seek.
    void SetKey();
    bool GotoKey();
    void GotoNearest();
    bool FindKey(const QVariantList &values);
    void FindNearest(const QVariantList &values);

    // ---- filter
    QString Filter() const { return filterText_; }
    // The text is checked when filtering is on; a bad text raises EDatabaseError
    // and leaves the filter in force as it was.
    void SetFilter(const QString &text);
    bool Filtered() const { return filtered_; }
    void SetFiltered(bool on);

    // ---- search and bookmarks
    // Fields joined by ";", values in the same order.
    bool Locate(const QString &fields, const QVariantList &values, LocateOptions options = 0);
    Bookmark GetBookmark() const;
    bool BookmarkValid(const Bookmark &bookmark);
    // Raises "Record not found" when the record is gone.
    void GotoBookmark(const Bookmark &bookmark);

    // ---- events by name: BeforeInsert, AfterInsert, OnNewRecord, BeforeEdit,
    // AfterEdit, BeforePost, AfterPost, BeforeCancel, AfterCancel, BeforeDelete,
    // AfterDelete, BeforeScroll, AfterScroll, OnCalcFields, OnStateChange;
    // OnDataChange takes the field that changed (nullptr for the record).
    // False for an unknown event name.
    bool SetHandler(const QString &event, DatasetEvent handler);
    void SetDataChangeHandler(DataChangeEvent handler) { onDataChange_ = std::move(handler); }
    bool HasHandler(const QString &event) const;
    static const QStringList &EventNames();

    // The table whose key the record has: a table's name, a query's table after " FROM ".
    virtual QString KeyTableName() const = 0;
    // The connection word the dataset reads from.
    virtual QString ConnectionWord() const = 0;

    // The current record's values, all fields (calculated ones last); a grid
    // keeps such records to draw rows other than the current one.
    const QVariantList &CurrentRecord() const { return buffer_; }

    // Used by Field.
    QVariant fieldValue(int index) const;
    void setFieldValue(int index, const QVariant &value);

protected:
    using Row = QVariantList; // values of the data fields, in field order

    struct ColumnInfo {
        QString name;
        TipoCampo type = TipoCampo::ftString;
        int size = 0;
        bool required = false;
    };

    // ---- what a source gives (rows within the range, in its order; no filter)
    virtual QList<ColumnInfo> srcOpen() = 0; // raises EDatabaseError
    virtual void srcClose() = 0;
    virtual bool srcFirst() = 0;
    virtual bool srcLast() = 0;
    virtual bool srcNext() = 0;
    virtual bool srcPrior() = 0;
    virtual const Row &srcRow() const = 0;
    virtual Bookmark srcBookmark() const = 0;
    // Positions on the bookmarked row; false (position unchanged) when gone.
    virtual bool srcGoto(const Bookmark &bookmark) = 0;
    // First row whose leading index fields are >= (nearest) or == (exact) `values`.
    virtual bool srcSeek(const QVariantList &values, bool nearest) = 0;
    virtual qlonglong srcCount() = 0;
    virtual qlonglong srcRecNo() = 0;
    // Drops what is cached, so that the next move reads afresh.
    virtual void srcInvalidate() = 0;
    // Writes raise EDatabaseError; on success the source stands on the written
    // row (insert, update) or on the row after the deleted one, else the one before
    // (false when none is left).
    virtual void srcBeginEdit(Row &row) = 0;
    virtual void srcEndEdit(bool posted) = 0;
    // True when the source stands on a row afterwards (the written one when it
    // is still within the range).
    virtual bool srcInsert(const Row &row, bool append, const Bookmark &before) = 0;
    virtual bool srcUpdate(const Row &original, const Row &row) = 0;
    virtual bool srcDelete(const Row &row) = 0;
    // Seeks by SQL where the source can; false means "scan instead".
    virtual std::optional<bool> srcLocate(const QStringList &, const QVariantList &,
                                          LocateOptions) {
        return std::nullopt;
    }

    const QVariantList &rangeStart() const { return rangeStart_; }
    const QVariantList &rangeEnd() const { return rangeEnd_; }
    int dataFieldCount() const { return dataFields_; }
    // Compares two values of a field type; used for in-memory order and ranges.
    static int compareTyped(ColumnKind kind, const QVariant &a, const QVariant &b);
    // Tuple comparison of a row's index fields with `values` (leading fields only).
    int compareIndex(const Row &row, const QVariantList &values) const;
    int fieldIndexOf(const QString &name) const;

    void checkActive() const;

private:
    void fire(const QString &event);
    void fireDataChange(Field *field);
    void setState(DatasetState state);
    void loadCurrent();
    void calcFields();
    bool accepted(const Row &row) const;
    FilterLookup lookupFor(const Row *row) const;
    bool firstAccepted();
    bool lastAccepted();
    // The leading index fields set in the key buffer, up to the first unset one.
    QVariantList valoresClave() const;
    // SetKey with `values` in the index fields, in order.
    void ponerClave(const QVariantList &values);
    // First (false) or Last (true): the move, its flags and its events.
    void irAlExtremo(bool ultimo);
    bool nextAccepted();
    bool priorAccepted();
    void settle();
    void checkBrowseMode();
    void checkCanModify() const;
    void beginInsert(bool append);
    void rangeChanged();

    std::vector<std::unique_ptr<Field>> fields_;
    std::vector<ColumnInfo> calculated_;
    int dataFields_ = 0;
    DatasetState state_ = DatasetState::Inactive;
    QVariantList buffer_; // current record, all fields
    Row original_;        // data values when the edit began
    QVariantList keyBuffer_;
    Bookmark beforeInsert_;
    bool appendMode_ = false;
    bool modified_ = false;
    bool bof_ = true;
    bool eof_ = true;
    bool empty_ = true;
    bool inCalc_ = false;

    QString indexName_;
    QString indexFieldNames_;
    QVariantList rangeStart_;
    QVariantList rangeEnd_;

    QString filterText_;
    FilterExpression filter_;
    bool filtered_ = false;

    QHash<QString, DatasetEvent> handlers_;
    DataChangeEvent onDataChange_;
};

} // namespace co::forms
