#include "app/user_locale.h"

#include <QLocale>

namespace corvane {

UserNumberFormat userNumberFormat() { return {QLocale::system().decimalPoint().toStdString()}; }

}  // namespace corvane
