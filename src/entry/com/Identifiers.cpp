// The identifiers of the class, its interface and its type library, which the other sources only
// declare.
#include <initguid.h>

#include "TradeFormsClass.h"
