#include "faults/PlannedPass.h"

#include <iterator>

PlannedPass::PlannedPass(qlonglong token)
    : Token(token), Driver(token % 2 == 0 ? QStringLiteral("2014") : QStringLiteral("2015")),
      Area(token % 3 == 0 ? QStringLiteral("Raja") : QStringLiteral("Kot"))
{
    // Neither the same products in each pass nor always as many.
    static const char* const products[] = {"101", "104", "210", "233", "299"};
    constexpr qlonglong all = qlonglong(std::size(products));
    const qlonglong count = 1 + token / all % all;
    for (qlonglong product = 0; product < all; ++product) {
        if ((product + token) % all < count)
            Rows.append(
                {QString::fromLatin1(products[product]), 10 * token + product, count, token});
    }
}
