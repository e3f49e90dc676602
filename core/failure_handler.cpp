#include "core/failure_handler.h"

#include "core/messages.h"

namespace co {

namespace {

const QString kAdvertencia = QStringLiteral("Advertencia");
const QString kError = QStringLiteral("Error");
const QString kIgnorar = QStringLiteral("IGNORAR");
const QString kInformacion = QStringLiteral("Informacion");
const QString kPlano = QStringLiteral("Plano");

bool has(const QString &t, const char *part) {
    return t.contains(QLatin1String(part));
}
bool is(const QString &t, const char *whole) {
    return t == QLatin1String(whole);
}

QString statementMessage(QString t, const char *engineStart) {
    return t
        .replace(QLatin1String(engineStart),
                 QStringLiteral("¡ La sentencia utilizada es incorrecta ! Palabra: "))
        .replace(QLatin1String(". Line Number: "), QStringLiteral(" en la línea número: "));
}

// The ones the user can do something about.
void firstGroup(const QString &t, QString &m) {
    if (is(t, "Unable to insert a line"))
        m = QStringLiteral("¡ La cantidad de información es excesiva !. Seleccione menos datos o "
                           "segrégelos en varios bloques diferentes.");
    if (is(t, "Record already locked by this session"))
        m = QStringLiteral("¡ El registro esta bloqueado en esta sesion !");
    if (is(t, "Dataset not in edit or insert mode"))
        m = QStringLiteral("¡ Debe estar en modo edición !");
    if (is(t, "Cannot perform this operation on an empty dataset"))
        m = QStringLiteral("¡ Es imposible realizar esta operación !. La Tabla está vacía.");
    if (is(t, "Type mismatch in expression"))
        m = QStringLiteral("¡ La sentencia tiene un error de sintaxis !");
    if (is(t, "No SQL statement available"))
        m = QStringLiteral("¡ No hay ninguna sentencia SQL disponible !");
    if (has(t, "Cannot modify a read-only dataset") || has(t, "Table is read only"))
        m = QStringLiteral("¡Ud. no tiene autorización para realizar modificaciones!");
    if (has(t, "Key violation"))
        m = QStringLiteral("¡ Ya existe el registro !");
    if (t.toUpper().contains(QLatin1String("RECORD/KEY DELETED")))
        m = QStringLiteral("¡Este registro ya no está disponible en la vista actual!. Para ver la "
                           "nueva situación vuelva a seleccionar o filtrar los datos que desee.");
    if (has(t, "Record locked by another user"))
        m = QStringLiteral("¡ El registro esta siendo bloqueado por otro usuario !");
    if (has(t, "already has an active transaction"))
        m = QStringLiteral("¡ Hay una transaccion activa en la Base de Datos !");
    if (has(t, "A deadlock was detected"))
        m = QStringLiteral("¡ El registro ha sido modificado por otro usuario !. Debe cancelar la "
                           "edición, salir e intentarlo de nuevo.");
    if (has(t, "is not a valid date"))
        m = QStringLiteral("¡ La fecha (u hora) introducida no es válida !. Repita por favor.");
    if (has(t, "is not a valid time"))
        m = QStringLiteral("¡ La hora introducida no es válida !. Repita por favor.");
    if (has(t, "is not a valid value") || has(t, "is not a valid integer value") ||
        has(t, "is not a valid floating point value"))
        m = QStringLiteral("¡ El dato introducido no es válido !. Repita por favor.");
    if (has(t, "No index currently active"))
        m = QStringLiteral("¡La tabla no está disponible. Cierre la ventana e inténtelo de nuevo.");
    if (has(t, "Field") && has(t, "must have a value")) {
        // The field's name is what the two deletions leave, blank included.
        QString rest = t.mid(6);
        const qsizetype at = rest.indexOf(QLatin1String("must have a value"));
        if (at >= 0)
            rest.remove(at, 17);
        m = QStringLiteral("¡ Debe introducir un valor en el campo ") + rest + QStringLiteral(" !");
    }
    if (has(t, "Invalid use of keyword"))
        m = statementMessage(t, "Invalid use of keyword. Token: ");
    if (has(t, "Token not found"))
        m = statementMessage(t, "Token not found. Token: ");
}

// The ones that leave the session unusable.
void secondGroup(const QString &t, QString &m, bool &rebuild) {
    if (has(t, "Cannot lock network file"))
        m = QStringLiteral(
            "¡ Es imposible iniciar la aplicación en este momento!. Inténtelo de nuevo.");
    if (is(t, "Cannot perform this operation on a closed dataset"))
        m = QStringLiteral("¡ Es imposible realizar esta operación !. La Tabla está cerrada.");
    if (has(t, "Table does not exist"))
        m = QStringLiteral("¡ La tabla no existe !. Compruebe la Base de Datos por favor.");
    if (has(t, "Path not found"))
        m = QStringLiteral("¡ La dirección (path) de la Base de Datos es incorrecta !");
    if (has(t, "Field") && has(t, "is not of the expected type"))
        m = QStringLiteral("TRADUCIR: ") + t;
    if (has(t, "At beginning of table"))
        m = QStringLiteral("Al principio de la tabla.");
    if (has(t, "Some internal limit"))
        m = QStringLiteral("¡Se ha producido un error de límite interno!. Cierre alguna "
                           "aplicación e inténtelo de nuevo.");
    if (has(t, "Access violation"))
        m = QStringLiteral("¡Se ha producido un error indeterminado en el sistema!. En estas "
                           "condiciones es recomendable reiniciar la computadora.");
    if (has(t, "Index is out of date")) {
        m = QStringLiteral("TRADUCIR: ") + t;
        rebuild = true;
    }
    if (is(t, "No index currently active")) {
        m = QStringLiteral("No hay un índice activo en la tabla");
        rebuild = true;
    }
}

// Noise of the widget layer and of transient states.
void thirdGroup(const QString &t, QString &m) {
    if (is(t, "Cannot focus a disabled or invisible window") ||
        is(t, "Error creating cursor handle") || has(t, "Table is busy") ||
        has(t, "Cursor unknown") || has(t, "'0.0' is not a valid"))
        m = kIgnorar;
}

} // namespace

FailureDecision GestionExcepciones(const QString &texto) {
    FailureDecision d;
    if (has(texto, "Invalid BLOB handle in record buffer")) {
        d.kind = kPlano;
        d.message = QStringLiteral("¡El número de campos Memo que se intenta manejar es "
                                   "excesivo!. Acote la consulta.");
        return d;
    }
    firstGroup(texto, d.message);
    if (!d.message.isEmpty() && d.kind.isEmpty())
        d.kind = kAdvertencia;
    secondGroup(texto, d.message, d.rebuild);
    if (!d.message.isEmpty() && d.kind.isEmpty())
        d.kind = kError;
    thirdGroup(texto, d.message);
    if (d.message == kIgnorar || (!d.message.isEmpty() && d.kind.isEmpty()))
        d.kind = kIgnorar;
    if (d.message.isEmpty()) {
        d.kind = kAdvertencia;
        d.message = texto;
    }
    return d;
}

QString TraducirPrefijo(const QString &texto) {
    const QLatin1String prefix("TRADUCIR:");
    if (!texto.startsWith(prefix))
        return texto;
    QString t = texto.mid(prefix.size());
    if (t.startsWith(u' '))
        t.remove(0, 1);
    if (has(t, "Index is out of date"))
        t.replace(QLatin1String("Index is out of date"),
                  QStringLiteral("El índice no está actualizado."));
    if (has(t, "At beginning of table"))
        t.replace(QLatin1String("At beginning of table"),
                  QStringLiteral("Al principio de la tabla."));
    if (has(t, "Field") && has(t, "not found"))
        t.replace(QLatin1String("Field"), QStringLiteral("El campo"))
            .replace(QLatin1String("not found"), QStringLiteral("no está definido."));
    if (has(t, "Field") && has(t, "is not of the expected type"))
        t.replace(QLatin1String("Field"), QStringLiteral("El campo"))
            .replace(QLatin1String("is not of the expected type"),
                     QStringLiteral("no es del tipo adecuado."));
    if (has(t, "An error occurred while attempting to initialize the Borland Database Engine"))
        t = QStringLiteral("Se ha producido un error al inicializar el BDE.");
    if (has(t, "Some internal limit"))
        t = QStringLiteral("¡Se ha producido un error de límite interno!. Cierre alguna "
                           "aplicación e inténtelo de nuevo.");
    return t;
}

void MostrarFallo(const FailureDecision &decision, Messenger &mensajes, const FailureHooks &hooks) {
    auto call = [](const std::function<void()> &f) {
        if (f)
            f();
    };
    if (decision.kind == kPlano) {
        mensajes.MensajePlano(decision.message);
        call(hooks.closeSender);
        return;
    }
    if (decision.kind == kIgnorar) {
        call(hooks.restoreCursor);
    } else if (decision.kind == kAdvertencia) {
        mensajes.MensajeA(decision.message);
    } else if (decision.kind == kError) {
        call(hooks.busyCursor);
        mensajes.MensajeE(decision.message);
    } else if (decision.kind == kInformacion) {
        mensajes.MensajeI(decision.message);
    }
    if (decision.rebuild)
        call(hooks.rebuild);
    if (decision.kind != kError && hooks.registerIncident)
        hooks.registerIncident(decision);
}

} // namespace co
