#pragma once
// The widths of a grid's columns on screen: the declared width, a text field
// left at the default width grows with its size (within reason), and no
// column is narrower than its title or than a date or number it shows.

class QTableView;

namespace co::ui {

class DatasetModel;

void AjustarAnchosColumnas(QTableView &view, const DatasetModel &model);

} // namespace co::ui
