#pragma once

#include "sample/Random.h"

#include <QString>

// Names and addresses of made-up people, drawn from lists of their parts.

namespace Sample {

QString GivenName(Random& random);
QString Caste(Random& random);
QString HomeAddress(Random& random);
QString JobAddress(Random& random);
QString City(Random& random);
QString Colour(Random& random);
/// Thirteen digits in the form 35102-1234567-8.
QString IdentityCard(Random& random);
QString MobileNumber(Random& random);
QString HousePhone(Random& random);
QString VehicleNumber(Random& random);

} // namespace Sample
