#pragma once
// The device-independent page document: pages of positioned text, line,
// rectangle and image items, in layout units (pixels at 96 dpi, the unit of
// the report designs). The composer hands each page to a PageSink as soon as
// it is complete, so no renderer needs the whole document in memory.

#include <QColor>
#include <QImage>
#include <QList>
#include <QString>
#include <QTextStream>
#include <optional>

namespace co {

// The bands of a report, in printing order.
enum class BandType {
    PageHeader,
    BandaCabecera,
    BandaDetalle,
    Detail,
    BandaPie,
    BandaSumario,
    PageFooter
};

QString NombreBanda(BandType tipo);

enum class Alineacion { Izquierda, Derecha, Centro };

struct FontSpec {
    QString family = QStringLiteral("Arial");
    double pointSize = 8;
    bool bold = false;
    bool italic = false;
    bool operator==(const FontSpec &) const = default;
};

// Paper sizes by the printer numbers the reports keep: 9 A4, 11 A5, 8 A3.
enum class PaperSize { A4 = 9, A5 = 11, A3 = 8 };
enum class Orientation { Portrait, Landscape };

struct PageSetup {
    PaperSize paper = PaperSize::A4;
    Orientation orientation = Orientation::Portrait;
    int marginLeft = 38; // 10 mm
    int marginTop = 38;
    int marginRight = 38;
    int marginBottom = 38;

    int width() const; // of the page, orientation applied
    int height() const;
    int bodyWidth() const { return width() - marginLeft - marginRight; }
};

struct PageItem {
    enum class Kind { Text, Line, Rect, Image };
    Kind kind = Kind::Text;
    BandType band = BandType::BandaDetalle;
    int x = 0, y = 0, w = 0, h = 0;
    QString text;
    FontSpec font;
    Alineacion align = Alineacion::Izquierda;
    QColor color = Qt::black;   // text or pen
    std::optional<QColor> fill; // rectangles
    QImage image;               // images (implicitly shared)

    static PageItem At(Kind kind, BandType band, int x, int y, int w, int h) {
        PageItem it;
        it.kind = kind;
        it.band = band;
        it.x = x;
        it.y = y;
        it.w = w;
        it.h = h;
        return it;
    }
};

struct ReportPage {
    int number = 0;
    int width = 0;
    int height = 0;
    QList<PageItem> items;
};

// Receives pages as the composer completes them. A false return stops the
// composition; `motivo` then says why.
class PageSink {
public:
    virtual ~PageSink() = default;
    virtual bool addPage(ReportPage &&page, QString *motivo) = 0;
    // Called once after the last page of a complete composition.
    virtual bool finish(QString *motivo) {
        (void)motivo;
        return true;
    }
};

// Keeps every page (the preview, tests).
class PageCollector : public PageSink {
public:
    bool addPage(ReportPage &&page, QString *) override {
        pages.push_back(std::move(page));
        return true;
    }
    QList<ReportPage> pages;
};

// A stable text form of a page, one item a line, for comparisons.
void DescribirPagina(const ReportPage &page, QTextStream &out);
QString DescribirPaginas(const QList<ReportPage> &pages);

// Hands stored pages to another sink (exports from the preview).
bool ReproducirPaginas(const QList<ReportPage> &pages, PageSink &sink, QString *motivo);

} // namespace co
