#pragma once
// The context menu of a record screen's data grid: filters by the value of the
// column under the mouse ("equal to", "from", "to"), and the cancel of filters
// and range. The filters themselves are forms/value_filters.h; this only offers
// them, and not while the record is pending nor on a calculated column.

#include <QPoint>
#include <functional>

class QTableView;

namespace co {
class Messenger;
}

namespace co::forms {
class DBGrid;
}

namespace co::ui {

class DatasetModel;

// `ejecutar` runs an action as the window runs the user's (told failures).
void MenuFiltrosValor(QTableView &vista, DatasetModel &modelo, forms::DBGrid &rejilla,
                      Messenger &mensajes, const std::function<bool(const std::function<void()> &)> &ejecutar,
                      QPoint posicion);

} // namespace co::ui
