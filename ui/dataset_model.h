#pragma once
// A Qt table model over one grid of a form: its visible columns over the grid's
// dataset. Rows are read lazily in chunks (canFetchMore/fetchMore walk the
// dataset's paged cursor), so a grid on a million rows opens at once. Rows keep
// their records' values and are formatted when drawn, so only the cells on
// screen cost a text. The record being edited or inserted is shown from its
// live fields; memo columns show " ...". Writes go through the dataset;
// refusals are told by the caller. The columns follow the grid's: a change of
// them in the form is shown anew, and the user's widths and moves are written
// back to the grid.

#include "forms/form.h"

#include <QAbstractTableModel>
#include <QList>
#include <functional>

namespace co::ui {

class DatasetModel : public QAbstractTableModel {
public:
    // `run` executes an action as the window loop does (see RutinasFormulario::Ejecutar).
    DatasetModel(forms::DBGrid &grid, std::function<bool(const std::function<void()> &)> run,
                 QObject *parent = nullptr);

    int rowCount(const QModelIndex &parent = {}) const override;
    int columnCount(const QModelIndex &parent = {}) const override;
    QVariant data(const QModelIndex &index, int role) const override;
    QVariant headerData(int section, Qt::Orientation o, int role) const override;
    Qt::ItemFlags flags(const QModelIndex &index) const override;
    bool setData(const QModelIndex &index, const QVariant &value, int role) override;
    // True when the last write was refused (a bad value, a check that stopped it).
    bool escrituraRechazada() const { return rechazada_; }
    void olvidarRechazo() { rechazada_ = false; }
    bool canFetchMore(const QModelIndex &parent) const override;
    void fetchMore(const QModelIndex &parent) override;

    // Re-reads from the first row, as many rows as were shown.
    void reload();
    // Tells the view of the row of a record being inserted, which comes and
    // goes with the dataset's state, and redraws the pending record's cells.
    void sync();
    // The grid's columns changed in the form (Ctrl+H, a layout): the model
    // shows them anew.
    bool columnasCambiadas() const;
    void rehacerColumnas();
    // What the user did to the header goes to the grid's columns, so that the
    // form knows its layout: a width, or a column dragged to another place.
    void anchoUsuario(int modelColumn, int width);
    void moverColumna(int fromModel, int toModel);
    // The grid column index of a model column.
    int gridColumn(int modelColumn) const { return columns_.value(modelColumn, -1); }
    int modelColumn(int gridColumn) const { return columns_.indexOf(gridColumn); }
    const forms::GridColumn &column(int modelColumn) const {
        return grid_.Columns.at(columns_.at(modelColumn));
    }
    // The field shown in a model column; nullptr without a dataset or such field.
    forms::Field *field(int modelColumn) const;
    // The row of the dataset's current record; -1 when not shown.
    int currentRow() const;
    // Makes a row the dataset's current record; false when the move stopped.
    bool moveTo(int row);
    static constexpr int kChunk = 64;

private:
    forms::Dataset *dataset() const { return grid_.DataSet(); }
    QString text(int row, int gridColumn) const;
    QString cellText(const forms::Field *field, const QVariantList &record) const;
    // Reads up to `count` records from the dataset's current one onwards.
    void readFromCurrent(int count, QList<QVariantList> &records, QList<forms::Bookmark> &marks);
    void readChunk(int count);

    forms::DBGrid &grid_;
    std::function<bool(const std::function<void()> &)> run_;
    QList<int> columns_;             // visible grid columns
    QList<forms::GridColumn> shown_; // the grid's columns the model was made from
    QList<forms::Bookmark> marks_;
    QList<QVariantList> rows_; // the records shown, all fields
    bool atEnd_ = true;
    bool insertRow_ = false; // the view has been told of the new record's row
    bool rechazada_ = false;
};

} // namespace co::ui
