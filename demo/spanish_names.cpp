#include "demo/spanish_names.h"

namespace co::demo {

const QList<QString> &NombresPila() {
    static const QList<QString> v{
        QStringLiteral("Antonio"),   QStringLiteral("José"),      QStringLiteral("Manuel"),
        QStringLiteral("Francisco"), QStringLiteral("David"),     QStringLiteral("Juan"),
        QStringLiteral("Javier"),    QStringLiteral("Daniel"),    QStringLiteral("Carlos"),
        QStringLiteral("Jesús"),     QStringLiteral("Alejandro"), QStringLiteral("Miguel"),
        QStringLiteral("Rafael"),    QStringLiteral("Pedro"),     QStringLiteral("Ángel"),
        QStringLiteral("Pablo"),     QStringLiteral("Sergio"),    QStringLiteral("Fernando"),
        QStringLiteral("Luis"),      QStringLiteral("Jorge"),     QStringLiteral("Alberto"),
        QStringLiteral("María"),     QStringLiteral("Carmen"),    QStringLiteral("Ana"),
        QStringLiteral("Laura"),     QStringLiteral("Isabel"),    QStringLiteral("Cristina"),
        QStringLiteral("Marta"),     QStringLiteral("Lucía"),     QStringLiteral("Pilar"),
        QStringLiteral("Rosa"),      QStringLiteral("Elena"),     QStringLiteral("Raquel"),
    };
    return v;
}

const QList<QString> &Apellidos() {
    static const QList<QString> v{
        QStringLiteral("García"),    QStringLiteral("Rodríguez"), QStringLiteral("González"),
        QStringLiteral("Fernández"), QStringLiteral("López"),     QStringLiteral("Martínez"),
        QStringLiteral("Sánchez"),   QStringLiteral("Pérez"),     QStringLiteral("Gómez"),
        QStringLiteral("Martín"),    QStringLiteral("Jiménez"),   QStringLiteral("Ruiz"),
        QStringLiteral("Hernández"), QStringLiteral("Díaz"),      QStringLiteral("Moreno"),
        QStringLiteral("Muñoz"),     QStringLiteral("Álvarez"),   QStringLiteral("Romero"),
        QStringLiteral("Alonso"),    QStringLiteral("Gutiérrez"), QStringLiteral("Navarro"),
        QStringLiteral("Torres"),    QStringLiteral("Domínguez"), QStringLiteral("Vázquez"),
        QStringLiteral("Ramos"),     QStringLiteral("Gil"),       QStringLiteral("Ramírez"),
        QStringLiteral("Serrano"),   QStringLiteral("Blanco"),    QStringLiteral("Molina"),
        QStringLiteral("Ortega"),    QStringLiteral("Delgado"),   QStringLiteral("Castro"),
        QStringLiteral("Ortiz"),     QStringLiteral("Rubio"),     QStringLiteral("Marín"),
        QStringLiteral("Sanz"),      QStringLiteral("Iglesias"),  QStringLiteral("Núñez"),
        QStringLiteral("Medina"),    QStringLiteral("Garrido"),   QStringLiteral("Cortés"),
    };
    return v;
}

const QList<FormaJuridica> &FormasJuridicas() {
    static const QList<FormaJuridica> v{
        {QStringLiteral(", S.L."), u'B'},   {QStringLiteral(", S.L."), u'B'},
        {QStringLiteral(", S.L."), u'B'},   {QStringLiteral(", S.A."), u'A'},
        {QStringLiteral(", S.L.U."), u'B'}, {QStringLiteral(", S.Coop."), u'F'},
    };
    return v;
}

const QList<QString> &ActividadesProveedor() {
    static const QList<QString> v{
        QStringLiteral("Hormigones"),
        QStringLiteral("Áridos"),
        QStringLiteral("Ferralla"),
        QStringLiteral("Cerámicas"),
        QStringLiteral("Maderas"),
        QStringLiteral("Saneamientos"),
        QStringLiteral("Suministros Eléctricos"),
        QStringLiteral("Pinturas"),
        QStringLiteral("Aislamientos"),
        QStringLiteral("Excavaciones"),
        QStringLiteral("Alquileres"),
        QStringLiteral("Grúas"),
        QStringLiteral("Ferretería Industrial"),
        QStringLiteral("Cubiertas"),
        QStringLiteral("Instalaciones"),
        QStringLiteral("Transportes"),
        QStringLiteral("Contenedores"),
        QStringLiteral("Carpintería Metálica"),
    };
    return v;
}

const QList<QString> &ActividadesCliente() {
    static const QList<QString> v{
        QStringLiteral("Promociones"),    QStringLiteral("Inmobiliaria"),
        QStringLiteral("Residencial"),    QStringLiteral("Gestión de Activos"),
        QStringLiteral("Inversiones"),    QStringLiteral("Hostelería"),
        QStringLiteral("Logística"),      QStringLiteral("Distribuciones"),
        QStringLiteral("Talleres"),       QStringLiteral("Bodegas"),
        QStringLiteral("Clínica Dental"), QStringLiteral("Colegio"),
    };
    return v;
}

const QList<QString> &ComplementosNombre() {
    static const QList<QString> v{
        QStringLiteral("del Henares"), QStringLiteral("Levante"),    QStringLiteral("del Sur"),
        QStringLiteral("del Norte"),   QStringLiteral("Castellana"), QStringLiteral("Tajo"),
        QStringLiteral("Ibérica"),     QStringLiteral("del Centro"), QStringLiteral("Mediterráneo"),
        QStringLiteral("Atlántico"),   QStringLiteral("Guadarrama"), QStringLiteral("Sierra Norte"),
    };
    return v;
}

} // namespace co::demo
