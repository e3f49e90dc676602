#include "output/page_exports.h"

#include <algorithm>

namespace co {

namespace {

constexpr int kAnchoCaracter = 7;

QString csvField(const QString &text) {
    if (!text.contains(u',') && !text.contains(u'"') && !text.contains(u'\n'))
        return text;
    QString q = text;
    q.replace(u'"', QStringLiteral("\"\""));
    return u'"' + q + u'"';
}

} // namespace

QList<ExportRow> FilasDePagina(const ReportPage &page) {
    QList<ExportRow> rows;
    for (const PageItem &it : page.items) {
        if (it.kind != PageItem::Kind::Text || it.text.isEmpty())
            continue;
        auto row = std::find_if(rows.begin(), rows.end(), [&](const ExportRow &r) {
            return r.y == it.y && r.band == it.band;
        });
        if (row == rows.end()) {
            rows.push_back({it.band, it.y, {}});
            row = rows.end() - 1;
        }
        row->cells.push_back({it.x, it.w, it.text, it.align});
    }
    std::stable_sort(rows.begin(), rows.end(),
                     [](const ExportRow &a, const ExportRow &b) { return a.y < b.y; });
    for (ExportRow &r : rows)
        std::stable_sort(r.cells.begin(), r.cells.end(),
                         [](const ExportCell &a, const ExportCell &b) { return a.x < b.x; });
    return rows;
}

bool FilaExportable(const ExportRow &row, int page) {
    return row.band != BandType::PageFooter && (row.band != BandType::PageHeader || page == 1);
}

bool RowExportSink::addPage(ReportPage &&page, QString *motivo) {
    if (!out_) {
        if (!file_.open(QIODevice::WriteOnly | QIODevice::Truncate | QIODevice::Text)) {
            *motivo = file_.errorString();
            return false;
        }
        out_ = std::make_unique<QTextStream>(&file_);
        beginDocument(*out_);
    }
    beginPage(*out_, page.number);
    for (const ExportRow &row : FilasDePagina(page))
        writeRow(*out_, row, page.number);
    endPage(*out_);
    if (out_->status() != QTextStream::Ok) {
        *motivo = file_.errorString();
        return false;
    }
    return true;
}

bool RowExportSink::finish(QString *motivo) {
    if (!out_)
        return true;
    endDocument(*out_);
    out_->flush();
    bool ok = out_->status() == QTextStream::Ok && file_.error() == QFileDevice::NoError && file_.flush();
    out_.reset();
    file_.close();
    ok = ok && file_.error() == QFileDevice::NoError;
    if (!ok)
        *motivo = file_.errorString();
    return ok;
}

void TextExportSink::beginPage(QTextStream &out, int number) {
    if (number > 1)
        out << '\f';
}

void TextExportSink::writeRow(QTextStream &out, const ExportRow &row, int) {
    QString line;
    for (const ExportCell &c : row.cells) {
        int column = c.x / kAnchoCaracter;
        if (c.align == Alineacion::Derecha)
            column =
                std::max(column, static_cast<int>((c.x + c.w) / kAnchoCaracter - c.text.size()));
        if (line.size() >= column && !line.isEmpty())
            line += u' ';
        else
            line = line.leftJustified(column, u' ');
        line += c.text;
    }
    out << line << '\n';
}

void CsvExportSink::writeRow(QTextStream &out, const ExportRow &row, int page) {
    if (!FilaExportable(row, page))
        return;
    QStringList fields;
    for (const ExportCell &c : row.cells)
        fields << csvField(c.text);
    out << fields.join(u',') << '\n';
}

void HtmlExportSink::beginDocument(QTextStream &out) {
    out << "<!DOCTYPE html>\n<html>\n<head>\n<meta charset=\"utf-8\">\n<title>"
        << titulo_.toHtmlEscaped() << "</title>\n</head>\n<body>\n";
}

void HtmlExportSink::beginPage(QTextStream &out, int number) {
    if (number > 1)
        out << "<hr>\n";
    out << "<table>\n";
}

void HtmlExportSink::writeRow(QTextStream &out, const ExportRow &row, int) {
    out << "<tr>";
    for (const ExportCell &c : row.cells)
        out << (c.align == Alineacion::Derecha ? "<td align=\"right\">" : "<td>")
            << c.text.toHtmlEscaped() << "</td>";
    out << "</tr>\n";
}

void HtmlExportSink::endPage(QTextStream &out) {
    out << "</table>\n";
}

void HtmlExportSink::endDocument(QTextStream &out) {
    out << "</body>\n</html>\n";
}

QString ExtensionExportacion(int indiceFiltro) {
    switch (indiceFiltro) {
    case 1:
        return QStringLiteral(".TXT");
    case 2:
        return QStringLiteral(".CSV");
    case 3:
        return QStringLiteral(".HTM");
    default:
        return {};
    }
}

std::unique_ptr<PageSink> SinkExportacion(int indiceFiltro, QString ruta, const QString &titulo) {
    const QString ext = ExtensionExportacion(indiceFiltro);
    if (ext.isEmpty())
        return nullptr;
    if (!ruta.endsWith(ext, Qt::CaseInsensitive))
        ruta += ext;
    switch (indiceFiltro) {
    case 1:
        return std::make_unique<TextExportSink>(ruta);
    case 2:
        return std::make_unique<CsvExportSink>(ruta);
    default:
        return std::make_unique<HtmlExportSink>(ruta, titulo);
    }
}

} // namespace co
