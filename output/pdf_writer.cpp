#include "output/pdf_writer.h"

#include <QFont>
#include <QPageSize>

namespace co {

namespace {

constexpr int kResolucion = 96; // one device dot per layout unit

QPageSize::PageSizeId pageSizeOf(PaperSize p) {
    switch (p) {
    case PaperSize::A5:
        return QPageSize::A5;
    case PaperSize::A3:
        return QPageSize::A3;
    case PaperSize::A4:
        break;
    }
    return QPageSize::A4;
}

Qt::Alignment alignOf(Alineacion a) {
    switch (a) {
    case Alineacion::Derecha:
        return Qt::AlignRight;
    case Alineacion::Centro:
        return Qt::AlignHCenter;
    case Alineacion::Izquierda:
        break;
    }
    return Qt::AlignLeft;
}

} // namespace

QString NombreTamanoPapel(PaperSize papel, Orientation orientacion) {
    QString nombre = papel == PaperSize::A5   ? QStringLiteral("A5")
                     : papel == PaperSize::A3 ? QStringLiteral("A3")
                                              : QStringLiteral("A4");
    if (orientacion == Orientation::Landscape)
        nombre += QStringLiteral("-Apaisado");
    return nombre;
}

std::optional<PageSetup> PapelDeNombre(const QString &nombre) {
    for (PaperSize p : {PaperSize::A4, PaperSize::A5, PaperSize::A3})
        for (Orientation o : {Orientation::Portrait, Orientation::Landscape})
            if (NombreTamanoPapel(p, o) == nombre) {
                PageSetup s;
                s.paper = p;
                s.orientation = o;
                return s;
            }
    return std::nullopt;
}

void PintarPagina(QPainter &painter, const ReportPage &page) {
    for (const PageItem &it : page.items) {
        const QRect r(it.x, it.y, it.w, it.h);
        switch (it.kind) {
        case PageItem::Kind::Text: {
            QFont font(it.font.family);
            font.setPointSizeF(it.font.pointSize);
            font.setBold(it.font.bold);
            font.setItalic(it.font.italic);
            painter.setFont(font);
            painter.setPen(it.color);
            painter.drawText(
                r, static_cast<int>(alignOf(it.align) | Qt::AlignTop | Qt::TextWordWrap), it.text);
            break;
        }
        case PageItem::Kind::Line:
            painter.setPen(it.color);
            painter.drawLine(it.x, it.y, it.x + it.w, it.y);
            break;
        case PageItem::Kind::Rect:
            painter.setPen(it.color);
            painter.setBrush(it.fill ? QBrush(*it.fill) : QBrush(Qt::NoBrush));
            painter.drawRect(r);
            painter.setBrush(Qt::NoBrush);
            break;
        case PageItem::Kind::Image:
            painter.drawImage(r, it.image);
            break;
        }
    }
}

PdfPageSink::PdfPageSink(const QString &ruta, const QString &tamano, const QString &titulo)
    : ruta_(ruta), tamano_(tamano), titulo_(titulo), file_(ruta) {}

PdfPageSink::~PdfPageSink() {
    painter_.reset();
    writer_.reset();
}

bool PdfPageSink::open(QString *motivo) {
    const auto setup = PapelDeNombre(tamano_);
    if (!setup) {
        *motivo = QStringLiteral("Tamaño de papel desconocido: ") + tamano_;
        return false;
    }
    if (!file_.open(QIODevice::WriteOnly | QIODevice::Truncate)) {
        *motivo = file_.errorString();
        return false;
    }
    writer_ = std::make_unique<QPdfWriter>(&file_);
    writer_->setResolution(kResolucion);
    writer_->setPageSize(QPageSize(pageSizeOf(setup->paper)));
    writer_->setPageOrientation(setup->orientation == Orientation::Landscape
                                    ? QPageLayout::Landscape
                                    : QPageLayout::Portrait);
    writer_->setPageMargins(QMarginsF(0, 0, 0, 0));
    writer_->setTitle(titulo_);
    writer_->setCreator(QStringLiteral("Control de Obras"));
    painter_ = std::make_unique<QPainter>();
    if (!painter_->begin(writer_.get())) {
        *motivo = QStringLiteral("No se puede escribir en ") + ruta_;
        return false;
    }
    return true;
}

bool PdfPageSink::addPage(ReportPage &&page, QString *motivo) {
    if (first_) {
        first_ = false;
        if (!open(motivo)) {
            discard();
            return false;
        }
    } else if (!writer_->newPage()) {
        *motivo = QStringLiteral("No se puede añadir una página a ") + ruta_;
        return false;
    }
    PintarPagina(*painter_, page);
    return true;
}

bool PdfPageSink::finish(QString *motivo) {
    if (!painter_)
        return true;
    painter_->end();
    painter_.reset();
    writer_.reset();
    // A full disk shows only when the buffered bytes go out: flush, close and
    // check the device each time.
    bool ok = file_.error() == QFileDevice::NoError && file_.flush();
    file_.close();
    ok = ok && file_.error() == QFileDevice::NoError;
    if (!ok)
        *motivo = file_.errorString().isEmpty() ? QStringLiteral("No se puede escribir en ") + ruta_
                                                : file_.errorString();
    return ok;
}

void PdfPageSink::discard() {
    if (painter_ && painter_->isActive())
        painter_->end();
    painter_.reset();
    writer_.reset();
    if (file_.isOpen()) {
        file_.close();
        file_.remove();
    }
}

} // namespace co
