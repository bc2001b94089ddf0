// The identifiers that the class's header only declares.
#include <initguid.h>

#include "TradeFormsClass.h"
