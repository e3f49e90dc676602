#include "output/restrictions_line.h"

namespace co {

namespace {

const QString kLabel = QStringLiteral("LabelRestricciones");
const QString kLogo = QStringLiteral("TituloLogotipoEmpresa");
const QString kEmpresa = QStringLiteral("TituloNombreEmpresa");

// Under the logo; with no logo, under the company name.
int topDeLabel(const RestriccionesListado &r, const ReportBand &band) {
    for (const QString &name : {kLogo, kEmpresa})
        if (const ReportControl *c = band.control(name))
            return r.TopsGuardados.value(name) + c->Height;
    return 0;
}

} // namespace

QString EtiquetaControl(const QString &nombre) {
    QStringList words;
    QString word;
    for (const QChar ch : nombre) {
        if (ch.isUpper() && !word.isEmpty() && !word.back().isUpper()) {
            words << word;
            word.clear();
        }
        word += ch;
    }
    if (!word.isEmpty())
        words << word;
    words.removeAll(QStringLiteral("Edit"));
    return words.join(u' ');
}

QString TextoRestricciones(const QList<ControlFiltro> &controles, const QString &rangosGrupos) {
    QString out;
    for (const ControlFiltro &c : controles) {
        if (c.Name == u"VisualizacionPrevia")
            continue;
        switch (c.tipo) {
        case ControlFiltro::Tipo::Edit:
        case ControlFiltro::Tipo::MaskEdit:
            if (!c.Text.trimmed().isEmpty())
                out +=
                    EtiquetaControl(c.Name) + QStringLiteral(": ") + c.Text + QStringLiteral(", ");
            break;
        case ControlFiltro::Tipo::ComboBox:
            out += EtiquetaControl(c.Name) + QStringLiteral(": ") + c.Text + QStringLiteral(", ");
            break;
        case ControlFiltro::Tipo::CheckBox:
            if (c.Checked)
                out += c.Caption + QStringLiteral(", ");
            break;
        case ControlFiltro::Tipo::RadioButton:
            if (c.Checked && c.Visible)
                out += c.Caption + QStringLiteral(", ");
            break;
        case ControlFiltro::Tipo::Otro:
            break;
        }
    }
    out += rangosGrupos;
    out.remove(u'\r').remove(u'\n').remove(QStringLiteral("Edit"));
    return out;
}

QList<ControlFiltro> ControlesFiltro(const forms::Form &form) {
    using forms::ComponentKind;
    QList<ControlFiltro> out;
    for (const forms::Component *c : form.Components()) {
        ControlFiltro f{c->Name(), ControlFiltro::Tipo::Otro, c->Text, c->Caption, c->Checked,
                        c->Visible};
        switch (c->Kind()) {
        case ComponentKind::Edit:
        case ComponentKind::DBEdit:
            f.tipo = ControlFiltro::Tipo::Edit;
            break;
        case ComponentKind::ComboBox:
        case ComponentKind::DBComboBox:
            f.tipo = ControlFiltro::Tipo::ComboBox;
            break;
        case ComponentKind::CheckBox:
            f.tipo = ControlFiltro::Tipo::CheckBox;
            break;
        default:
            continue;
        }
        if (const auto *dc = dynamic_cast<const forms::DataControl *>(c))
            if (const forms::Field *campo = dc->BoundField())
                f.Text = campo->AsString();
        out << f;
    }
    return out;
}

QString TextoRestricciones(const forms::Form &form, const QString &rangosGrupos) {
    const bool conRangos = form.FindComponent(QStringLiteral("pbRangoGruposAnalisis")) != nullptr;
    return TextoRestricciones(ControlesFiltro(form), conRangos ? rangosGrupos : QString());
}

RestriccionesListado PrepararRestricciones(ReportBand &cabecera, const QString &texto, bool mostrar,
                                           int anchoBanda) {
    RestriccionesListado r{texto, mostrar, cabecera.Height, {}};
    for (const ReportControl &c : cabecera.Controls)
        r.TopsGuardados.insert(c.Name, c.Top);
    if (!cabecera.control(kLabel)) {
        ReportControl label;
        label.Name = kLabel;
        label.Kind = ControlKind::Label;
        label.Top = topDeLabel(r, cabecera);
        label.Width = anchoBanda;
        label.Height = 0;
        label.Font = FontSpec{QStringLiteral("Arial"), 8, false, false};
        label.Color = QColor(0x80, 0x00, 0x00); // colour value 128
        label.Visible = false;
        cabecera.add(label);
    }
    return r;
}

int LineasRestricciones(const QString &texto, Orientation orientacion) {
    const int porLinea = orientacion == Orientation::Landscape ? 160 : 100;
    return static_cast<int>(texto.size()) / porLinea + 1;
}

void AjustarRestricciones(ReportBand &cabecera, RestriccionesListado &r, Orientation orientacion) {
    const QString prefijo = QLatin1String(kPrefijoRestricciones);
    if (!r.Texto.startsWith(prefijo))
        r.Texto.prepend(prefijo);
    const bool vacio = r.Texto.size() == prefijo.size();
    ReportControl *label = cabecera.control(kLabel);
    int altura = LineasRestricciones(r.Texto, orientacion) * 15;
    if (altura < 16)
        altura = 30;
    const bool mostrar = r.Mostrar && !vacio && label;
    const int top = topDeLabel(r, cabecera);
    for (ReportControl &c : cabecera.Controls) {
        if (c.Name == kLabel || !r.TopsGuardados.contains(c.Name))
            continue;
        const int guardado = r.TopsGuardados.value(c.Name);
        // The company name stays, and so does what lies above the label.
        const bool mover = mostrar && c.Name != kEmpresa && guardado >= top && c.Name != kLogo;
        c.Top = mover ? guardado + altura : guardado;
    }
    cabecera.Height = mostrar ? r.AlturaGuardada + altura : r.AlturaGuardada;
    if (label) {
        label->Visible = mostrar;
        label->Caption = r.Texto;
        label->Top = top;
        label->Height = mostrar ? altura : 0;
    }
}

} // namespace co
