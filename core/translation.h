#pragma once
// Run-time translation of the program's Spanish texts. The Spanish text is the
// key of `TXIDIOMA` in the general database; a text without a translation stays
// Spanish, and a failed lookup counts as no translation, never as a text.
//
// The translator holds the two session values of translation: `ParametroIdioma`,
// the `T=` language of the command line (empty turns translation off: nothing is
// looked up, no statement runs), and `IntercalacionTextos`, the collation of
// `TXIDIOMA` added to every lookup with "_AI" read as "_AS".
//
// Keys compare exactly: accents and case count on both back-ends ("Informacion"
// does not find "Información"). Every text passes the cache before any query;
// texts holding "=" never enter it and always go to the table.
// An empty language argument means the session's language.

#include "core/translation_cache.h"

#include <QList>
#include <QString>
#include <optional>

namespace co {

class Messenger;
class TModuloDatos;

// One text of a form or data object as the screen framework hands it over:
// the component ("" for the form itself), the property ("Caption", "Hint",
// "ReportTitle", "Columns[2].Title", "Cells[3,0]", "Hints", "Items", ...) and
// its text.
struct TextoFormulario {
    QString componente;
    QString propiedad;
    QString texto;
};

class Translator {
public:
    Translator(TModuloDatos &datos, QString idioma, QString intercalacion = {});

    const QString &ParametroIdioma() const { return idioma_; }
    const QString &IntercalacionTextos() const { return intercalacion_; }

    // The text in the language, or the text itself. Texts left alone: empty ones,
    // names of report controls and labels ("QR...", "LB..."), one character once
    // "&" is removed, and all texts while the general data can't be reached or
    // there is no language, and texts asked for while a lookup is under way (a
    // message shown by the lookup itself). Tries the exact key, the key with variable parts,
    // and then word by word, leaving `$Nombre$` parameters untranslated.
    QString TraducirTexto(const QString &texto, const QString &idioma = {});

    // One exact lookup, through the cache; nullopt without a translation.
    std::optional<QString> BuscarTraduccion(const QString &texto, const QString &idioma = {});

    // A key with the same fixed words as a sentence of several words, whose
    // translation takes the sentence's variable parts in the place of its "\X"
    // marks ("Factura 123" with "Factura \X" = "Invoice \X" gives "Invoice 123").
    std::optional<QString> BuscarTraduccionAproximada(const QString &texto,
                                                      const QString &idioma = {});

    // Translates the texts of a form in place. A property that holds a list of
    // texts ("Hints", "Items", "Lines", "Tabs") is translated line by line.
    void TraducirFormulario(QList<TextoFormulario> &textos, const QString &idioma = {});

    // Makes `mensajes` translate the title and text of every message it shows.
    // The translator must outlive that use.
    void TraducirMensajes(Messenger &mensajes);

    const TranslationCache &cache() const { return cache_; }

private:
    QString idiomaDe(const QString &idioma) const { return idioma.isEmpty() ? idioma_ : idioma; }
    QString traducirPalabras(const QString &texto, const QString &idioma);
    std::optional<QString> primerValor(const QString &sql);
    QString intercalacion() const;
    QString cacheKey(const QString &texto, const QString &idioma) const;
    bool generalConectada();

    TModuloDatos &datos_;
    QString idioma_;
    QString intercalacion_;
    TranslationCache cache_;
    bool busy_ = false;
};

} // namespace co
