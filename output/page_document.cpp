#include "output/page_document.h"

namespace co {

namespace {

// A4, A5 and A3 at 96 dpi, portrait.
QSize paperPixels(PaperSize paper) {
    switch (paper) {
    case PaperSize::A5:
        return {559, 794};
    case PaperSize::A3:
        return {1123, 1587};
    case PaperSize::A4:
        break;
    }
    return {794, 1123};
}

QString alignName(Alineacion a) {
    switch (a) {
    case Alineacion::Derecha:
        return QStringLiteral("R");
    case Alineacion::Centro:
        return QStringLiteral("C");
    case Alineacion::Izquierda:
        break;
    }
    return QStringLiteral("L");
}

QString quoted(QString text) {
    text.replace(u'\\', QStringLiteral("\\\\")).replace(u'"', QStringLiteral("\\\""));
    text.replace(u'\n', QStringLiteral("\\n"));
    return u'"' + text + u'"';
}

} // namespace

QString NombreBanda(BandType tipo) {
    switch (tipo) {
    case BandType::PageHeader:
        return QStringLiteral("PageHeader");
    case BandType::BandaCabecera:
        return QStringLiteral("BandaCabecera");
    case BandType::BandaDetalle:
        return QStringLiteral("BandaDetalle");
    case BandType::Detail:
        return QStringLiteral("Detail");
    case BandType::BandaPie:
        return QStringLiteral("BandaPie");
    case BandType::BandaSumario:
        return QStringLiteral("BandaSumario");
    case BandType::PageFooter:
        return QStringLiteral("PageFooter");
    }
    return {};
}

int PageSetup::width() const {
    const QSize s = paperPixels(paper);
    return orientation == Orientation::Portrait ? s.width() : s.height();
}

int PageSetup::height() const {
    const QSize s = paperPixels(paper);
    return orientation == Orientation::Portrait ? s.height() : s.width();
}

void DescribirPagina(const ReportPage &page, QTextStream &out) {
    out << "page " << page.number << ' ' << page.width << 'x' << page.height << '\n';
    for (const PageItem &it : page.items) {
        const QString where = QStringLiteral("%1 %2,%3 %4x%5")
                                  .arg(NombreBanda(it.band))
                                  .arg(it.x)
                                  .arg(it.y)
                                  .arg(it.w)
                                  .arg(it.h);
        switch (it.kind) {
        case PageItem::Kind::Text:
            out << "  text " << where << ' ' << quoted(it.text) << ' ' << it.font.family << ','
                << it.font.pointSize << (it.font.bold ? ",b" : "") << (it.font.italic ? ",i" : "")
                << ' ' << alignName(it.align) << ' ' << it.color.name() << '\n';
            break;
        case PageItem::Kind::Line:
            out << "  line " << where << ' ' << it.color.name() << '\n';
            break;
        case PageItem::Kind::Rect:
            out << "  rect " << where << ' ' << it.color.name() << " fill "
                << (it.fill ? it.fill->name() : QStringLiteral("none")) << '\n';
            break;
        case PageItem::Kind::Image:
            out << "  image " << where << ' ' << it.image.width() << 'x' << it.image.height()
                << '\n';
            break;
        }
    }
}

QString DescribirPaginas(const QList<ReportPage> &pages) {
    QString text;
    QTextStream out(&text);
    for (const ReportPage &p : pages)
        DescribirPagina(p, out);
    out.flush();
    return text;
}

bool ReproducirPaginas(const QList<ReportPage> &pages, PageSink &sink, QString *motivo) {
    for (ReportPage page : pages)
        if (!sink.addPage(std::move(page), motivo))
            return false;
    return sink.finish(motivo);
}

} // namespace co
