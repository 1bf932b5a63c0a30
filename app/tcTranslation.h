#pragma once

#include <QStringList>

/// The program's texts in the operator's language. English is the language that they are
/// written in: it has no catalogue and none is ever laid over it.
namespace tcTranslation
{

/// Languages with a catalogue, as two letters.
QStringList available();

/// The language out of acAvailable for somebody who wants the languages acWanted, best first,
/// as the system names them ("de-AT", "en", "C"). Empty where the texts stay English.
QString choose(const QStringList& acWanted, const QStringList& acAvailable);

/// Lays the catalogues of that language, the program's and Qt's, over the application's texts.
/// To be called once the application object stands and before there is a window.
void install(const QString& acLanguage);

/// The same for the language of the system.
void install();

} // namespace tcTranslation
