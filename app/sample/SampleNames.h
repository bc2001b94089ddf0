#pragma once

#include "SampleRandom.h"

#include <QString>

// Names and addresses of made-up people, put together from lists of their parts.

namespace Host::Sample {

QString GivenName(SampleRandom& random);
QString Caste(SampleRandom& random);
QString HomeAddress(SampleRandom& random);
QString JobAddress(SampleRandom& random);
QString City(SampleRandom& random);
QString Colour(SampleRandom& random);
/// Thirteen digits in the form 35102-1234567-8.
QString IdentityCard(SampleRandom& random);
QString MobileNumber(SampleRandom& random);
QString HousePhone(SampleRandom& random);
QString VehicleNumber(SampleRandom& random);

} // namespace Host::Sample
