#include "models/StripeLayout.h"

#include <algorithm>

StripeColumns stripeColumns(const QVector<StripeExtent>& stripes) {
    StripeColumns result;
    result.columns.reserve(stripes.size());
    QVector<int> tails;  // where the last stripe of each column ends
    for (const StripeExtent& stripe : stripes) {
        const auto free =
            std::find_if(tails.cbegin(), tails.cend(), [&stripe](int tail) { return stripe.y1 >= tail; });
        const int column = static_cast<int>(free - tails.cbegin());
        if (column == tails.size())
            tails.append(stripe.y2);
        else
            tails[column] = stripe.y2;
        result.columns.append(column);
    }
    result.count = std::max(1, tails.size());
    return result;
}
