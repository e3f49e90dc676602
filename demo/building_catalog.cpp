#include "demo/building_catalog.h"

namespace co::demo {
namespace {
QString S(const char16_t *t) {
    return QString::fromUtf16(t);
}
} // namespace

const QList<CapituloCatalogo> &CapitulosCatalogo() {
    static const QList<CapituloCatalogo> v{
        {S(u"Demoliciones"),
         false,
         {{S(u"DEM010"), S(u"Demolición de tabiquería de ladrillo"),
           S(u"Demolición de tabiquería de ladrillo hueco, con medios manuales, incluso retirada "
             u"de escombros a pie de carga."),
           S(u"m2"), 7.80, 40, 300},
          {S(u"DEM020"), S(u"Levantado de carpintería interior"),
           S(u"Levantado de carpintería de madera en puertas y armarios, con recuperación de "
             u"herrajes."),
           S(u"ud"), 18.50, 6, 40},
          {S(u"DEM030"), S(u"Demolición de solera de hormigón"),
           S(u"Demolición de solera de hormigón en masa de hasta 15 cm de espesor con martillo "
             u"neumático."),
           S(u"m2"), 11.20, 30, 250}}},
        {S(u"Movimiento de tierras"),
         false,
         {{S(u"MOV010"), S(u"Excavación en vaciado a máquina"),
           S(u"Excavación a cielo abierto en vaciado, en terreno compacto, con medios mecánicos y "
             u"carga sobre camión."),
           S(u"m3"), 6.40, 150, 1800},
          {S(u"MOV020"), S(u"Excavación en zanjas y pozos"),
           S(u"Excavación en zanjas y pozos de cimentación, en terreno de consistencia media, con "
             u"retroexcavadora."),
           S(u"m3"), 14.30, 40, 400},
          {S(u"MOV030"), S(u"Relleno y compactado con zahorra"),
           S(u"Relleno de zahorra artificial en tongadas de 25 cm compactadas al 98 % del Proctor "
             u"modificado."),
           S(u"m3"), 21.60, 40, 350},
          {S(u"MOV040"), S(u"Transporte de tierras a vertedero"),
           S(u"Transporte de tierras a vertedero autorizado, a una distancia menor de 20 km, con "
             u"camión basculante."),
           S(u"m3"), 5.10, 150, 1800}}},
        {S(u"Cimentación"),
         false,
         {{S(u"CIM010"), S(u"Hormigón de limpieza HL-150/B/20"),
           S(u"Capa de hormigón de limpieza HL-150/B/20, de 10 cm de espesor, vertido desde "
             u"camión."),
           S(u"m2"), 8.90, 80, 600},
          {S(u"CIM020"), S(u"Zapata de hormigón armado HA-25"),
           S(u"Zapata de cimentación de hormigón armado HA-25/B/20/IIa, con acero B 500 S, cuantía "
             u"50 kg/m3."),
           S(u"m3"), 165.00, 20, 180},
          {S(u"CIM030"), S(u"Viga de atado de hormigón armado"),
           S(u"Viga de atado de hormigón armado HA-25/B/20/IIa, con encofrado de madera y acero B "
             u"500 S."),
           S(u"m3"), 198.00, 5, 40},
          {S(u"CIM040"), S(u"Acero corrugado B 500 S en cimientos"),
           S(u"Acero corrugado B 500 S, cortado, doblado y colocado en obra, incluso alambre de "
             u"atar y separadores."),
           S(u"kg"), 1.32, 1500, 12000}}},
        {S(u"Estructura"),
         false,
         {{S(u"EST010"), S(u"Pilar de hormigón armado HA-25"),
           S(u"Pilar de sección rectangular de hormigón armado HA-25/B/20/IIa, encofrado con "
             u"chapas metálicas."),
           S(u"m3"), 312.00, 8, 60},
          {S(u"EST020"), S(u"Forjado unidireccional de viguetas"),
           S(u"Forjado unidireccional 25+5 de viguetas pretensadas y bovedilla de hormigón, con "
             u"capa de compresión."),
           S(u"m2"), 52.40, 120, 1500},
          {S(u"EST030"), S(u"Losa de escalera de hormigón armado"),
           S(u"Losa de escalera de hormigón armado HA-25, de 15 cm de espesor, con peldañeado de "
             u"ladrillo."),
           S(u"m2"), 88.00, 10, 60},
          {S(u"EST040"), S(u"Acero S275JR en perfiles laminados"),
           S(u"Acero S275JR en perfiles laminados en caliente para vigas y pilares, con uniones "
             u"soldadas e imprimación."),
           S(u"kg"), 2.05, 800, 9000}}},
        {S(u"Albañilería"),
         true,
         {{S(u"ALB010"), S(u"Fábrica de ladrillo perforado 1/2 pie"),
           S(u"Fábrica de ladrillo cerámico perforado de 24x11,5x9 cm, de 1/2 pie, recibida con "
             u"mortero M-7,5."),
           S(u"m2"), 31.50, 80, 900},
          {S(u"ALB020"), S(u"Tabique de ladrillo hueco doble"),
           S(u"Tabique de ladrillo cerámico hueco doble de 24x11,5x8 cm, recibido con mortero de "
             u"cemento M-5."),
           S(u"m2"), 19.80, 100, 1200},
          {S(u"ALB030"), S(u"Enfoscado maestreado de cemento"),
           S(u"Enfoscado maestreado y fratasado con mortero de cemento M-5 en paramentos "
             u"verticales, 15 mm."),
           S(u"m2"), 14.20, 150, 1800},
          {S(u"ALB040"), S(u"Recibido de cercos y premarcos"),
           S(u"Recibido de cercos o premarcos de carpintería con mortero de cemento, incluso "
             u"aplomado y nivelado."),
           S(u"ud"), 24.00, 10, 80}}},
        {S(u"Cubiertas"),
         false,
         {{S(u"CUB010"), S(u"Cubierta de teja cerámica mixta"),
           S(u"Cubierta de teja cerámica mixta en color rojo, recibida con mortero sobre tablero "
             u"de rasillón."),
           S(u"m2"), 42.70, 80, 700},
          {S(u"CUB020"), S(u"Impermeabilización con lámina asfáltica"),
           S(u"Impermeabilización monocapa adherida con lámina de betún modificado LBM-40/FP, con "
             u"imprimación."),
           S(u"m2"), 16.90, 80, 700},
          {S(u"CUB030"), S(u"Canalón de chapa de zinc"),
           S(u"Canalón visto de chapa de zinc de 0,65 mm, de 33 cm de desarrollo, con soportes y "
             u"piezas especiales."),
           S(u"m"), 27.40, 20, 120},
          {S(u"CUB040"), S(u"Aislamiento de lana mineral 80 mm"),
           S(u"Aislamiento térmico con panel de lana mineral de 80 mm de espesor, colocado entre "
             u"rastreles."),
           S(u"m2"), 11.60, 80, 700}}},
        {S(u"Fontanería"),
         true,
         {{S(u"FON010"), S(u"Tubería de polietileno reticulado 20 mm"),
           S(u"Tubería de polietileno reticulado PE-X de 20 mm de diámetro para agua fría y "
             u"caliente, con coquilla."),
           S(u"m"), 6.80, 60, 600},
          {S(u"FON020"), S(u"Bajante de PVC de 110 mm"),
           S(u"Bajante interior de PVC de 110 mm de diámetro, unión pegada, con abrazaderas y "
             u"piezas especiales."),
           S(u"m"), 18.40, 20, 150},
          {S(u"FON030"), S(u"Inodoro de porcelana vitrificada"),
           S(u"Inodoro de porcelana vitrificada blanco, con tanque bajo y asiento, instalado y "
             u"conectado."),
           S(u"ud"), 245.00, 2, 40},
          {S(u"FON040"), S(u"Termo eléctrico de 80 litros"),
           S(u"Termo eléctrico de 80 litros de capacidad, instalado con válvula de seguridad y "
             u"conexiones."),
           S(u"ud"), 310.00, 1, 20}}},
        {S(u"Electricidad"),
         true,
         {{S(u"ELE010"), S(u"Cuadro general de mando y protección"),
           S(u"Cuadro general de mando y protección con interruptor general, diferenciales y "
             u"magnetotérmicos."),
           S(u"ud"), 480.00, 1, 12},
          {S(u"ELE020"), S(u"Punto de luz sencillo"),
           S(u"Punto de luz sencillo con conductor de cobre de 1,5 mm2 bajo tubo corrugado, "
             u"mecanismo incluido."),
           S(u"ud"), 34.50, 10, 180},
          {S(u"ELE030"), S(u"Toma de corriente de 16 A"),
           S(u"Base de enchufe de 16 A con toma de tierra, conductor de 2,5 mm2 bajo tubo y "
             u"mecanismo."),
           S(u"ud"), 38.20, 15, 220},
          {S(u"ELE040"), S(u"Línea de cobre 3x2,5 mm2 bajo tubo"),
           S(u"Línea de cobre de 3x2,5 mm2 con aislamiento H07V-K bajo tubo de PVC corrugado "
             u"empotrado."),
           S(u"m"), 5.90, 100, 1500}}},
        {S(u"Acabados"),
         true,
         {{S(u"ACA010"), S(u"Solado de gres porcelánico"),
           S(u"Solado de baldosa de gres porcelánico de 60x60 cm, recibido con adhesivo cementoso "
             u"C2 TE."),
           S(u"m2"), 36.80, 60, 900},
          {S(u"ACA020"), S(u"Alicatado con azulejo cerámico"),
           S(u"Alicatado con azulejo cerámico de 20x40 cm, recibido con adhesivo, con rejuntado y "
             u"limpieza."),
           S(u"m2"), 29.60, 40, 600},
          {S(u"ACA030"), S(u"Pintura plástica lisa en paramentos"),
           S(u"Pintura plástica lisa mate en paramentos verticales y horizontales, dos manos sobre "
             u"imprimación."),
           S(u"m2"), 6.40, 200, 3000},
          {S(u"ACA040"), S(u"Falso techo de placa de yeso laminado"),
           S(u"Falso techo continuo de placa de yeso laminado de 13 mm sobre perfilería de acero "
             u"galvanizado."),
           S(u"m2"), 24.90, 50, 700}}},
        {S(u"Seguridad y salud"),
         true,
         {{S(u"SYS010"), S(u"Equipos de protección individual"),
           S(u"Equipos de protección individual por operario: casco, botas, guantes, gafas y "
             u"chaleco."),
           S(u"ud"), 62.00, 4, 25},
          {S(u"SYS020"), S(u"Barandilla de protección provisional"),
           S(u"Barandilla de protección provisional de 1 m de altura con guardacuerpos y rodapié, "
             u"y su retirada."),
           S(u"m"), 9.40, 30, 300},
          {S(u"SYS030"), S(u"Señalización y balizamiento de obra"),
           S(u"Señalización y balizamiento de la obra durante su ejecución, según el estudio de "
             u"seguridad."),
           S(u"pa"), 650.00, 1, 1},
          {S(u"SYS040"), S(u"Caseta prefabricada para vestuarios"),
           S(u"Alquiler de caseta prefabricada para vestuarios, por mes, incluso transporte, "
             u"montaje y retirada."),
           S(u"ud"), 145.00, 3, 14}}},
        {S(u"Gestión de residuos"),
         true,
         {{S(u"RES010"), S(u"Contenedor de residuos de 6 m3"),
           S(u"Alquiler, colocación y retirada de contenedor de 6 m3 para residuos mixtos de "
             u"construcción."),
           S(u"ud"), 135.00, 2, 30},
          {S(u"RES020"), S(u"Clasificación de residuos en obra"),
           S(u"Clasificación a pie de obra de residuos de construcción y demolición en fracciones "
             u"separadas."),
           S(u"m3"), 8.60, 10, 150},
          {S(u"RES030"), S(u"Canon de vertido de residuos"),
           S(u"Canon de vertido en planta autorizada de residuos inertes de construcción y "
             u"demolición."),
           S(u"m3"), 12.40, 10, 150}}},
    };
    return v;
}

const QList<FamiliaArticulos> &FamiliasArticulos() {
    static const QList<FamiliaArticulos> v{
        {S(u"CEM"),
         S(u"Cementos y morteros"),
         {S(u"Cemento CEM II/B-L 32,5 N"), S(u"Mortero seco M-7,5"), S(u"Mortero cola C2 TE"),
          S(u"Yeso de construcción YG"), S(u"Cemento blanco BL 22,5")},
         {S(u"saco 25 kg"), S(u"saco 35 kg"), S(u"palé"), S(u"big-bag")},
         S(u"ud"),
         3.2,
         9.8,
         0},
        {S(u"ARI"),
         S(u"Áridos"),
         {S(u"Arena de río lavada"), S(u"Grava caliza"), S(u"Zahorra artificial"),
          S(u"Arena de miga"), S(u"Gravilla")},
         {S(u"0/4 mm"), S(u"4/12 mm"), S(u"12/20 mm"), S(u"20/40 mm")},
         S(u"m3"),
         14.0,
         32.0,
         1},
        {S(u"HOR"),
         S(u"Hormigones"),
         {S(u"Hormigón HA-25/B/20/IIa"), S(u"Hormigón HA-30/B/20/IIa"), S(u"Hormigón HM-20/B/20/I"),
          S(u"Hormigón HL-150/B/20"), S(u"Hormigón HA-25/F/12/IIa")},
         {S(u"central"), S(u"bombeado"), S(u"con aditivo"), S(u"fibras")},
         S(u"m3"),
         62.0,
         98.0,
         0},
        {S(u"ACE"),
         S(u"Acero y ferralla"),
         {S(u"Barra corrugada B 500 S"), S(u"Malla electrosoldada"), S(u"Perfil IPE S275JR"),
          S(u"Perfil HEB S275JR"), S(u"Alambre de atar recocido")},
         {S(u"Ø 8 mm"), S(u"Ø 12 mm"), S(u"Ø 16 mm"), S(u"Ø 20 mm")},
         S(u"kg"),
         0.78,
         1.65,
         2},
        {S(u"CER"),
         S(u"Cerámica y ladrillos"),
         {S(u"Ladrillo perforado"), S(u"Ladrillo hueco doble"), S(u"Bloque de termoarcilla"),
          S(u"Rasillón cerámico"), S(u"Teja cerámica mixta")},
         {S(u"24x11,5x9"), S(u"24x11,5x7"), S(u"30x19x14"), S(u"50x20x4")},
         S(u"ud"),
         0.12,
         1.45,
         3},
        {S(u"MAD"),
         S(u"Maderas y encofrados"),
         {S(u"Tablero fenólico de encofrado"), S(u"Tabla de pino"), S(u"Puntal metálico"),
          S(u"Vigueta de encofrado H20"), S(u"Tablón de andamio")},
         {S(u"2,00 m"), S(u"2,50 m"), S(u"3,00 m"), S(u"4,00 m")},
         S(u"ud"),
         4.5,
         38.0,
         4},
        {S(u"FON"),
         S(u"Fontanería y saneamiento"),
         {S(u"Tubo PE-X"), S(u"Tubo PVC saneamiento"), S(u"Codo PVC 87º"), S(u"Manguito multicapa"),
          S(u"Llave de corte esfera")},
         {S(u"16 mm"), S(u"20 mm"), S(u"32 mm"), S(u"110 mm")},
         S(u"ud"),
         0.9,
         14.5,
         5},
        {S(u"ELE"),
         S(u"Material eléctrico"),
         {S(u"Cable H07V-K"), S(u"Tubo corrugado PVC"), S(u"Caja de registro"),
          S(u"Interruptor magnetotérmico"), S(u"Base de enchufe schuko")},
         {S(u"1,5 mm2"), S(u"2,5 mm2"), S(u"6 mm2"), S(u"10 mm2")},
         S(u"m"),
         0.35,
         18.0,
         6},
        {S(u"PIN"),
         S(u"Pinturas"),
         {S(u"Pintura plástica mate"), S(u"Imprimación selladora"), S(u"Esmalte sintético"),
          S(u"Pintura de fachada pétrea"), S(u"Barniz al agua")},
         {S(u"blanco 4 l"), S(u"blanco 15 l"), S(u"color 4 l"), S(u"color 15 l")},
         S(u"ud"),
         9.5,
         64.0,
         7},
        {S(u"AIS"),
         S(u"Aislamientos e impermeabilización"),
         {S(u"Panel de lana mineral"), S(u"Poliestireno extruido XPS"),
          S(u"Lámina asfáltica LBM-40"), S(u"Lámina de polietileno"), S(u"Espuma de poliuretano")},
         {S(u"40 mm"), S(u"60 mm"), S(u"80 mm"), S(u"100 mm")},
         S(u"m2"),
         2.1,
         12.5,
         8},
    };
    return v;
}

const QList<MaquinaCatalogo> &MaquinasCatalogo() {
    static const QList<MaquinaCatalogo> v{
        {S(u"Retroexcavadora mixta 8 t"), 42.00},    {S(u"Miniexcavadora 2,5 t"), 31.00},
        {S(u"Pala cargadora sobre ruedas"), 48.50},  {S(u"Camión basculante 3 ejes"), 45.00},
        {S(u"Grúa torre 40 m de pluma"), 38.00},     {S(u"Grúa autopropulsada 50 t"), 95.00},
        {S(u"Dumper autocargable 1,5 t"), 18.50},    {S(u"Rodillo vibrante 7 t"), 36.00},
        {S(u"Bomba de hormigón 36 m"), 120.00},      {S(u"Plataforma elevadora de tijera"), 15.00},
        {S(u"Martillo compresor neumático"), 12.50}, {S(u"Hormigonera eléctrica 300 l"), 4.80},
    };
    return v;
}

const QList<SubcontratoCatalogo> &SubcontratosCatalogo() {
    static const QList<SubcontratoCatalogo> v{
        {S(u"Montaje de andamio tubular"), 7.90, 10},
        {S(u"Instalación eléctrica de vivienda"), 3200.00, 14},
        {S(u"Instalación de fontanería de baño"), 1850.00, 14},
        {S(u"Carpintería de aluminio con RPT"), 310.00, 17},
        {S(u"Impermeabilización de cubierta plana"), 21.50, 13},
        {S(u"Pintura de fachada"), 9.80, 7},
        {S(u"Colocación de falso techo de pladur"), 17.40, 8},
        {S(u"Vertido y bombeo de hormigón"), 11.50, 0},
        {S(u"Transporte y gestión de residuos"), 95.00, 16},
        {S(u"Perforación y anclajes de muro"), 48.00, 9},
    };
    return v;
}

const QList<CategoriaCatalogo> &CategoriasCatalogo() {
    static const QList<CategoriaCatalogo> v{
        {S(u"Encargado de obra"), 27.80, 3},
        {S(u"Oficial de primera"), 22.40, 8},
        {S(u"Oficial de segunda"), 20.60, 5},
        {S(u"Ayudante"), 19.10, 4},
        {S(u"Peón especialista"), 18.20, 3},
        {S(u"Peón ordinario"), 17.30, 3},
        {S(u"Gruista"), 23.10, 1},
        {S(u"Electricista oficial 1ª"), 23.60, 2},
        {S(u"Fontanero oficial 1ª"), 23.40, 1},
    };
    return v;
}

const QList<IncidenciaCatalogo> &IncidenciasCatalogo() {
    static const QList<IncidenciaCatalogo> v{
        {S(u"Parada por lluvia"), S(u"Trabajo"), S(u"SI")},
        {S(u"Espera de material en obra"), S(u"Trabajo"), S(u"SI")},
        {S(u"Formación en PRL"), S(u"Trabajo"), S(u"NO")},
        {S(u"Visita médica"), S(u"Trabajo"), S(u"NO")},
        {S(u"Reparación de defectos"), S(u"Trabajo"), S(u"SI")},
        {S(u"Avería mecánica"), S(u"Maquina"), S(u"NO")},
        {S(u"Mantenimiento preventivo"), S(u"Maquina"), S(u"SI")},
        {S(u"Falta de combustible"), S(u"Maquina"), S(u"SI")},
        {S(u"Traslado entre obras"), S(u"Maquina"), S(u"SI")},
    };
    return v;
}

const QList<BancoCatalogo> &BancosCatalogo() {
    static const QList<BancoCatalogo> v{
        {S(u"0049"), S(u"Banco Santander"), S(u"BSCHESMMXXX")},
        {S(u"0182"), S(u"Banco Bilbao Vizcaya Argentaria"), S(u"BBVAESMMXXX")},
        {S(u"2100"), S(u"CaixaBank"), S(u"CAIXESBBXXX")},
        {S(u"0081"), S(u"Banco de Sabadell"), S(u"BSABESBBXXX")},
        {S(u"0128"), S(u"Bankinter"), S(u"BKBKESMMXXX")},
        {S(u"2085"), S(u"Ibercaja Banco"), S(u"CAZRES2ZXXX")},
        {S(u"3058"), S(u"Cajamar Caja Rural"), S(u"CCRIES2AXXX")},
        {S(u"2095"), S(u"Kutxabank"), S(u"BASKES2BXXX")},
    };
    return v;
}

const QList<QString> &TiposObra() {
    static const QList<QString> v{
        S(u"Edificio de 12 viviendas"),
        S(u"Nave industrial"),
        S(u"Reforma integral de vivienda"),
        S(u"Rehabilitación de fachada"),
        S(u"Vivienda unifamiliar"),
        S(u"Reforma de local comercial"),
        S(u"Ampliación de colegio"),
        S(u"Urbanización de calle"),
        S(u"Reforma de cubierta"),
        S(u"Adecuación de oficinas"),
        S(u"Centro de día"),
        S(u"Pabellón polideportivo"),
        S(u"Reforma de baños y cocina"),
        S(u"Edificio de 24 viviendas"),
        S(u"Naves de almacenaje"),
    };
    return v;
}

} // namespace co::demo
