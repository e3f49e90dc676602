#pragma once
// Answers the font dialog of Ctrl+L in place of QFontDialog: with a given font,
// or with a cancel, and records the font each dialog opened on. The real
// dialog comes back when the answer goes.
#include "ui/font_dialog.h"

#include <QHeaderView>
#include <QTableView>
#include <gtest/gtest.h>

namespace co::ui::test {

class RespuestaFuente {
public:
    explicit RespuestaFuente(std::optional<QFont> respuesta) : respuesta_(std::move(respuesta)) {
        FijarSelectorFuente([this](const QFont &actual, QWidget *) {
            abiertas << actual;
            return respuesta_;
        });
    }
    ~RespuestaFuente() { FijarSelectorFuente({}); }
    RespuestaFuente(const RespuestaFuente &) = delete;
    RespuestaFuente &operator=(const RespuestaFuente &) = delete;

    void responder(std::optional<QFont> respuesta) { respuesta_ = std::move(respuesta); }
    QList<QFont> abiertas;

private:
    std::optional<QFont> respuesta_;
};

// A font no default would give.
inline QFont fuenteElegida() {
    QFont f(QStringLiteral("Courier"), 17);
    f.setItalic(true);
    return f;
}

inline QColor titulos(QTableView &grid) {
    return grid.horizontalHeader()->palette().color(QPalette::ButtonText);
}

// The grid draws `f` in its cells and its titles, and the titles in navy.
inline void esperarFuenteEnRejilla(QTableView &grid, const QFont &f) {
    EXPECT_EQ(grid.font(), f);
    EXPECT_EQ(grid.horizontalHeader()->font(), f);
    EXPECT_EQ(titulos(grid), QColor(0x00, 0x00, 0x80));
}

} // namespace co::ui::test
