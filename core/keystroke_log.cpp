#include "core/keystroke_log.h"

namespace co {

int CodigoTeclaVirtual(const Tecla &t) {
    const int k = t.key;
    if (t.tecladoNumerico()) {
        if (k >= Qt::Key_0 && k <= Qt::Key_9)
            return 96 + (k - Qt::Key_0);
        switch (k) {
        case Qt::Key_Asterisk:
            return 106;
        case Qt::Key_Plus:
            return 107;
        case Qt::Key_Minus:
            return 109;
        case Qt::Key_Period:
        case Qt::Key_Comma:
            return 110;
        case Qt::Key_Slash:
            return 111;
        case Qt::Key_Enter:
            return 13;
        default:
            break;
        }
    }
    if ((k >= Qt::Key_A && k <= Qt::Key_Z) || (k >= Qt::Key_0 && k <= Qt::Key_9))
        return k;
    if (k >= Qt::Key_F1 && k <= Qt::Key_F24)
        return 112 + (k - Qt::Key_F1);
    switch (k) {
    case Qt::Key_Backspace:
        return 8;
    case Qt::Key_Tab:
        return 9;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return 13;
    case Qt::Key_Shift:
        return 16;
    case Qt::Key_Control:
        return 17;
    case Qt::Key_Alt:
        return 18;
    case Qt::Key_Escape:
        return 27;
    case Qt::Key_Space:
        return 32;
    case Qt::Key_PageUp:
        return 33;
    case Qt::Key_PageDown:
        return 34;
    case Qt::Key_End:
        return 35;
    case Qt::Key_Home:
        return 36;
    case Qt::Key_Left:
        return 37;
    case Qt::Key_Up:
        return 38;
    case Qt::Key_Right:
        return 39;
    case Qt::Key_Down:
        return 40;
    case Qt::Key_Insert:
        return 45;
    case Qt::Key_Delete:
        return 46;
    default:
        return 0;
    }
}

void EstadoTeclado::RegistrarPulsacion(const Tecla &tecla) {
    const int codigo = CodigoTeclaVirtual(tecla);
    UltimaTecla = codigo;
    const Qt::KeyboardModifiers shift =
        tecla.modifiers & (Qt::ShiftModifier | Qt::ControlModifier | Qt::AltModifier);
    const QString nuevo = (codigo >= 40 && codigo <= 122 && shift == Qt::NoModifier)
                              ? QString(QChar(codigo))
                              : QStringLiteral("|");
    if (Pulsaciones.size() > 10000)
        Pulsaciones.clear();
    Pulsaciones += nuevo;
    if (Pulsaciones.endsWith(QStringLiteral("||")))
        Pulsaciones.chop(1);
}

QString EstadoTeclado::UltimaPalabra() const {
    const QStringList palabras = Pulsaciones.split(u'|', Qt::SkipEmptyParts);
    return palabras.isEmpty() ? QString() : palabras.last();
}

} // namespace co
