#pragma once
// The table definition language and the creation of tables from it:
//  - definition_text.h: the lines of the language, DefinicionTabla, ListaTablas,
//    MezclarEstructuras (pure text);
//  - structure_files.h: DATABASE.TXT with its .VRT and .ESP files, RutaEstructuras,
//    LeerEstructuras, ListaTablasBD;
//  - table_ddl.h: a table's fields and indexes and their statements per back-end;
//  - table_creation.h: CreadorTablas, the statement layer's TableCreator, with
//    CrearTabla, the user-defined fields, the first company and CrearBaseDatos.
//
// Not here: AperturaTablaOK, which opens a dataset and needs the dataset framework.

#include "core/definition_text.h"
#include "core/structure_files.h"
#include "core/table_creation.h"
#include "core/table_ddl.h"
