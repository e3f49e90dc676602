#pragma once
// Exports of the page document to plain text, CSV and HTML. One walk serves
// them all: the text items of each page are gathered into rows (same top,
// left to right) and each format only writes a row its own way.
//
// Text keeps the columns (one character per 7 layout units) and separates
// pages by a form feed. CSV writes the page header once and no page footers;
// fields are separated by "," and quoted when needed. HTML writes a table per
// page. Files are UTF-8 and opened at the first page.

#include "output/page_document.h"

#include <QFile>
#include <QList>
#include <QString>
#include <QTextStream>
#include <memory>

namespace co {

struct ExportCell {
    int x = 0, w = 0;
    QString text;
    Alineacion align = Alineacion::Izquierda;
};

struct ExportRow {
    BandType band;
    int y = 0;
    QList<ExportCell> cells;
};

// The rows of a page, top to bottom.
QList<ExportRow> FilasDePagina(const ReportPage &page);
// Whether a data export (CSV, spreadsheet) keeps a row: the page header only
// on the first page, never the page footer.
bool FilaExportable(const ExportRow &row, int page);

class RowExportSink : public PageSink {
public:
    explicit RowExportSink(const QString &ruta) : file_(ruta) {}
    bool addPage(ReportPage &&page, QString *motivo) final;
    bool finish(QString *motivo) final;

protected:
    virtual void beginDocument(QTextStream &) {}
    virtual void beginPage(QTextStream &, int number) { (void)number; }
    virtual void writeRow(QTextStream &out, const ExportRow &row, int page) = 0;
    virtual void endPage(QTextStream &) {}
    virtual void endDocument(QTextStream &) {}

private:
    QFile file_;
    std::unique_ptr<QTextStream> out_;
};

class TextExportSink : public RowExportSink {
public:
    using RowExportSink::RowExportSink;

protected:
    void beginPage(QTextStream &out, int number) override;
    void writeRow(QTextStream &out, const ExportRow &row, int page) override;
};

class CsvExportSink : public RowExportSink {
public:
    using RowExportSink::RowExportSink;

protected:
    void writeRow(QTextStream &out, const ExportRow &row, int page) override;
};

class HtmlExportSink : public RowExportSink {
public:
    HtmlExportSink(const QString &ruta, const QString &titulo)
        : RowExportSink(ruta), titulo_(titulo) {}

protected:
    void beginDocument(QTextStream &out) override;
    void beginPage(QTextStream &out, int number) override;
    void writeRow(QTextStream &out, const ExportRow &row, int page) override;
    void endPage(QTextStream &out) override;
    void endDocument(QTextStream &out) override;

private:
    QString titulo_;
};

// The save dialog's filter of the preview, and the format by its index:
// 1 text (".TXT"), 2 CSV (".CSV"), 3 HTML (".HTM").
inline constexpr const char *kFiltroExportacion =
    "Archivos de Texto (*.TXT)|*.TXT|Formato CSV (*.CSV)|*.CSV|Documento HTML (*.HTM)|*.HTM";
QString ExtensionExportacion(int indiceFiltro);
// The sink of a filter index, writing `ruta` + the extension when it lacks it;
// null for an index out of range.
std::unique_ptr<PageSink> SinkExportacion(int indiceFiltro, QString ruta, const QString &titulo);

} // namespace co
