#include "base/fatal_fault.h"

cFatalFault::cFatalFault(const QString &source, int number, const QString &description)
    : std::runtime_error(description.toStdString())
    , source_(source)
    , number_(number)
    , description_(description)
{}

void RaiseFatal(const QString &source, int number, const QString &description)
{
    throw cFatalFault(source, number, description);
}
