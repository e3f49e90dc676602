#pragma once
// The PDF output: pages drawn as vectors with real, selectable text through
// QPdfWriter. The file is opened at the first page, so a report without pages
// writes no file; a failure leaves no partial file behind.
//
// Needs a QGuiApplication (fonts).

#include "output/page_document.h"

#include <QFile>
#include <QPainter>
#include <QPdfWriter>
#include <QString>
#include <memory>

namespace co {

// The size text of a paper and orientation: "A4", "A5", "A3", with
// "-Apaisado" added for landscape ("A5-Apaisado").
QString NombreTamanoPapel(PaperSize papel, Orientation orientacion);
// The paper of a size text; nullopt for an unknown one.
std::optional<PageSetup> PapelDeNombre(const QString &nombre);

class PdfPageSink : public PageSink {
public:
    PdfPageSink(const QString &ruta, const QString &tamano, const QString &titulo = {});
    ~PdfPageSink() override;

    bool addPage(ReportPage &&page, QString *motivo) override;
    bool finish(QString *motivo) override;
    // Drops the file written so far (a cancelled or failed report).
    void discard();

private:
    bool open(QString *motivo);

    QString ruta_, tamano_, titulo_;
    QFile file_;
    std::unique_ptr<QPdfWriter> writer_;
    std::unique_ptr<QPainter> painter_;
    bool first_ = true;
};

// Draws one page on a painter whose device runs at 96 dots per inch of layout.
void PintarPagina(QPainter &painter, const ReportPage &page);

} // namespace co
