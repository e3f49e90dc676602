#pragma once
// The design of a report: page setup, bands, groups and their controls, the
// way the listings lay them out. A design is plain data plus before-print
// handlers; the composer prints it against a data source.
//
// Sizes and positions are layout units (pixels at 96 dpi). Controls whose
// `Tag` is 1000 or more show money and follow the currency display.

#include "output/page_document.h"
#include "output/report_data_source.h"

#include <QColor>
#include <QHash>
#include <QImage>
#include <QList>
#include <QString>
#include <QVariant>
#include <functional>
#include <memory>
#include <optional>

namespace co {

enum class ControlKind {
    Label,      // `Caption`
    Field,      // the value of `DataField`
    Sum,        // "SUM(field)" in `DataField`, reset after its band prints
    PageNumber, // `Caption` followed by the page number
    Date,       // `Caption` followed by the date of the run
    Image,      // `Picture`
    Line,       // a horizontal rule across `Width`
    Shape,      // a rectangle
};

struct ReportControl {
    QString Name;
    ControlKind Kind = ControlKind::Label;
    int Left = 0, Top = 0, Width = 0, Height = 16;
    QString Caption;
    QString DataField;
    QString Mask; // display mask of numbers; empty takes the standard template
    int Tag = 0;
    Alineacion Alignment = Alineacion::Izquierda;
    FontSpec Font;
    QColor Color = Qt::black;
    bool Visible = true;
    // Text with line ends takes one `Height` per line and stretches its band.
    bool AutoStretch = false;
    bool ResetAfterPrint = true; // sums
    QImage Picture;
};

// A control at a place, the rest as default.
ReportControl Control(const QString &name, ControlKind kind, int left, int top, int width,
                      int height = 16);

// The row a band prints against, by field name.
class RowView {
public:
    RowView(const ReportDataSource *source, const QVariantList *values)
        : source_(source), values_(values) {}
    // Null when there is no row or no such field.
    QVariant value(const QString &field) const;
    double number(const QString &field) const { return value(field).toDouble(); }
    QString text(const QString &field) const { return value(field).toString(); }
    bool hasRow() const { return values_ && !values_->isEmpty(); }

private:
    const ReportDataSource *source_;
    const QVariantList *values_;
};

struct ReportBand;
// Runs before a band prints; it may change the band's controls and keep sums of
// its own. Returning false leaves the band out this time.
using BeforePrintHandler = std::function<bool(ReportBand &band, const RowView &row)>;

struct ReportBand {
    QString Name;
    BandType Type = BandType::BandaDetalle;
    int Height = 20;
    std::optional<QColor> Color; // background
    QList<ReportControl> Controls;
    BeforePrintHandler BeforePrint;

    ReportControl *control(const QString &name);
    const ReportControl *control(const QString &name) const;
    ReportControl &add(ReportControl c) {
        Controls.push_back(std::move(c));
        return Controls.back();
    }
};

ReportBand Banda(const QString &name, BandType type, int height);

// A group: its header prints when the expression changes, its footer after the
// group's last row. Groups are listed outermost first.
struct ReportGroup {
    QString Name;
    QString Expression;
    bool ForceNewPage = false; // `SepararEnPaginas`
    ReportBand Header;
    std::optional<ReportBand> Footer;
};

// The sub-detail: its own rows for each row of the detail.
struct SubDetail {
    ReportBand Band;
    std::function<std::unique_ptr<ReportDataSource>(const RowView &master)> Rows;
};

struct ReportDesign {
    QString Title;
    PageSetup Page;
    FontSpec Font; // the report's base font
    std::optional<ReportBand> PageHeader;
    QList<ReportGroup> Groups;
    ReportBand BandaDetalle = Banda(QStringLiteral("BandaDetalle"), BandType::BandaDetalle, 16);
    std::optional<SubDetail> Detail;
    std::optional<ReportBand> BandaSumario;
    std::optional<ReportBand> PageFooter;

    // Every band, in printing order; for walks that touch them all.
    QList<ReportBand *> bands();
    QList<const ReportBand *> bands() const;
    ReportControl *control(const QString &name);
};

} // namespace co
