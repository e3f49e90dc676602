#include "ui/grid_columns.h"

#include "ui/dataset_model.h"

#include <QHeaderView>
#include <QTableView>
#include <algorithm>

namespace co::ui {

void AjustarAnchosColumnas(QTableView &view, const DatasetModel &model) {
    const QFontMetrics titulos = view.horizontalHeader()->fontMetrics();
    const QFontMetrics celdas = view.fontMetrics();
    for (int section = 0; section < model.columnCount(); ++section) {
        const forms::GridColumn &c = model.column(section);
        const forms::Field *f = model.field(section);
        int width = c.Width;
        if (f && width == forms::GridColumn().Width) {
            if (!f->IsNumeric() && !f->IsDateTime() && f->Size > 8)
                width = std::min(f->Size * 7 + 12, 320);
            else if (f->IsDateTime())
                width = celdas.horizontalAdvance(QStringLiteral("00/00/0000 00:00")) + 12;
        }
        if (f && f->IsDateTime())
            width = std::max(width, celdas.horizontalAdvance(QStringLiteral("00/00/0000")) + 12);
        const QString titulo =
            model.headerData(section, Qt::Horizontal, Qt::DisplayRole).toString();
        width = std::max(width, titulos.horizontalAdvance(titulo) + 24);
        view.setColumnWidth(section, width);
    }
}

} // namespace co::ui
