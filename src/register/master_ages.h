#pragma once

#include <QString>

// Works out the age of every person in the register at the given date (dd/mm/yyyy).
// A person with no date of birth, or any person when the date is empty, gets no age.
void RecalcMasterAges(const QString &ageDate);
