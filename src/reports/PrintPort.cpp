#include "reports/PrintPort.h"
namespace TradeForms {
PrintPort::~PrintPort() = default;
}
