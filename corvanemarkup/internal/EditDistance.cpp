#include <corvanemarkup/internal/EditDistance.h>

#include <algorithm>
#include <vector>

namespace corvanemarkup::Internal {

std::size_t EditDistance(TextView left, TextView right, std::size_t most)
{
    if (left.size() > right.size())
        std::swap(left, right);
    if (right.size() - left.size() > most)
        return most + 1;
    const auto fold = [](char16_t unit) {
        return unit >= u'A' && unit <= u'Z' ? static_cast<char16_t>(unit + (u'a' - u'A')) : unit;
    };
    // Three rows of the table, each as far as `most` from the diagonal.
    std::vector<std::size_t> rows[3];
    for (auto& row : rows)
        row.assign(right.size() + 1, most + 1);
    for (std::size_t j = 0; j <= std::min(most, right.size()); ++j)
        rows[0][j] = j;
    for (std::size_t i = 1; i <= left.size(); ++i) {
        auto& row = rows[i % 3];
        const auto& above = rows[(i + 2) % 3];
        const auto& twoAbove = rows[(i + 1) % 3];
        const std::size_t first = i > most ? i - most : 0;
        const std::size_t last = std::min(i + most, right.size());
        for (std::size_t j = first; j <= last; ++j) {
            std::size_t best = above[j] + 1;
            if (j > 0) {
                const bool isSame = fold(left[i - 1]) == fold(right[j - 1]);
                best =
                    std::min({best, above[j - 1] + (isSame ? 0 : 1), j > first ? row[j - 1] + 1 : most + 1});
                if (i > 1 && j > 1 && fold(left[i - 1]) == fold(right[j - 2]) &&
                    fold(left[i - 2]) == fold(right[j - 1]))
                    best = std::min(best, twoAbove[j - 2] + 1);
            }
            row[j] = std::min(best, most + 1);
        }
        if (last < right.size())
            row[last + 1] = most + 1;
    }
    return rows[left.size() % 3][right.size()];
}

const TString* FindNearest(TextView name, const std::set<TString>& knownNames)
{
    const TString* nearest = nullptr;
    std::size_t most = std::max<std::size_t>(name.size() / 3, 1);
    for (const TString& known : knownNames) {
        const std::size_t distance = EditDistance(name, ViewOf(known), most);
        if (distance > most)
            continue;
        nearest = &known;
        if (distance == 0)
            break;
        most = distance - 1;
    }
    return nearest;
}

} // namespace corvanemarkup::Internal
