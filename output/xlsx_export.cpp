#include "output/xlsx_export.h"

#include "core/number_text.h"
#include "output/page_exports.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QRegularExpression>
#include <xlsxwriter.h>

namespace co {

std::optional<double> NumeroDeTexto(const QString &texto) {
    static const QRegularExpression numero(
        QStringLiteral("^-?(\\d{1,3}(\\.\\d{3})+|\\d+)(,\\d+)?$"));
    if (!numero.match(texto).hasMatch())
        return std::nullopt;
    const QString entero = texto.section(u',', 0, 0).remove(u'-');
    // "007" is a code, not seven.
    if (entero.size() > 1 && entero.startsWith(u'0'))
        return std::nullopt;
    return LeerDecimal(texto, PuntoSinComa::Millares);
}

XlsxExportSink::XlsxExportSink(QString ruta) : ruta_(std::move(ruta)) {}

XlsxExportSink::~XlsxExportSink() {
    if (workbook_) {
        workbook_close(workbook_);
        workbook_ = nullptr;
    }
}

bool XlsxExportSink::addPage(ReportPage &&page, QString *motivo) {
    if (!workbook_) {
        const QFileInfo destino(ruta_);
        // The library only reports a bad path when it closes the file.
        if (!destino.absoluteDir().exists()) {
            *motivo = QStringLiteral("No existe la carpeta ") + destino.absolutePath();
            return false;
        }
        lxw_workbook_options opciones{};
        opciones.constant_memory = LXW_TRUE;
        const QByteArray nombre = QFile::encodeName(ruta_);
        workbook_ = workbook_new_opt(nombre.constData(), &opciones);
        if (workbook_)
            sheet_ = workbook_add_worksheet(workbook_, "Listado");
        if (!sheet_) {
            *motivo = QStringLiteral("No ha sido posible crear la hoja");
            return false;
        }
    }
    for (const ExportRow &row : FilasDePagina(page)) {
        if (!FilaExportable(row, page.number))
            continue;
        lxw_col_t col = 0;
        for (const ExportCell &c : row.cells) {
            const std::optional<double> n = NumeroDeTexto(c.text);
            const lxw_error e =
                n ? worksheet_write_number(sheet_, row_, col, *n, nullptr)
                  : worksheet_write_string(sheet_, row_, col, c.text.toUtf8().constData(), nullptr);
            if (e != LXW_NO_ERROR) {
                *motivo = QString::fromUtf8(lxw_strerror(e));
                return false;
            }
            ++col;
        }
        ++row_;
    }
    return true;
}

bool XlsxExportSink::finish(QString *motivo) {
    if (!workbook_)
        return true;
    const lxw_error e = workbook_close(workbook_);
    workbook_ = nullptr;
    sheet_ = nullptr;
    if (e != LXW_NO_ERROR) {
        *motivo = QString::fromUtf8(lxw_strerror(e));
        return false;
    }
    return true;
}

} // namespace co
