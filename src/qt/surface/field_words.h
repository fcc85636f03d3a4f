// What each field is, in the words that a screen reader says.
#pragma once

#include <QString>

namespace velmora::qt {

/// The words for a field of a form ("Form1", "ListView1"); empty for a field whose own caption says
/// it.
QString fieldWords(const QString& form, const QString& field);

}  // namespace velmora::qt
