// The plain sequence that crosses the border between host and module.

#include "kd/rx/vector.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>

namespace {

TEST(VqVectorTest, is_empty_at_first) {
    const VqVector<int> vector;
    EXPECT_EQ(vector.size(), 0);
    EXPECT_TRUE(vector.isEmpty());
    EXPECT_EQ(vector.begin(), vector.end());
}

TEST(VqVectorTest, keeps_what_it_is_given_in_order) {
    VqVector<std::wstring> vector{L"a", L"b"};
    vector.append(L"c");
    EXPECT_EQ(vector.size(), 3);
    EXPECT_FALSE(vector.isEmpty());
    std::wstring all;
    for (const std::wstring& value : vector) all += value;
    EXPECT_EQ(all, L"abc");
}

TEST(VqVectorTest, values_are_read_and_written_by_index) {
    VqVector<int> vector{1, 2, 3};
    vector[1] = 20;
    const VqVector<int>& read = vector;
    EXPECT_EQ(read[0], 1);
    EXPECT_EQ(read[1], 20);
    EXPECT_EQ(read[2], 3);
}

TEST(VqVectorTest, a_copy_goes_its_own_way) {
    VqVector<int> one{1};
    VqVector<int> other = one;
    other.append(2);
    one[0] = 5;
    EXPECT_EQ(one.size(), 1);
    EXPECT_EQ(other.size(), 2);
    EXPECT_EQ(other[0], 1);
}

TEST(VqVectorTest, clearing_lets_the_values_go) {
    const auto value = std::make_shared<int>(1);
    VqVector<std::shared_ptr<int>> vector{value};
    vector.append(value);
    EXPECT_EQ(value.use_count(), 3);
    vector.clear();
    EXPECT_TRUE(vector.isEmpty());
    EXPECT_EQ(value.use_count(), 1);
}

}  // namespace
