#include "../AssertRecorder.h"

#include <SCL_Tree.h>

using namespace kel_ns;

namespace {

// Notes the order in which values end.
struct Value {
    Value(char valueName, std::string* valueLog) : name(valueName), log(valueLog) {}
    Value(const Value&) = delete;
    Value& operator=(const Value&) = delete;
    ~Value() { *log += name; }
    char name;
    std::string* log;
};

std::string textOf(const SCL_Tree<Value>& tree) {
    std::string text;
    for (const Value& value : tree)
        text += value.name;
    return text;
}

} // namespace

TEST(SCL_Tree, WalksInPreOrderAndRemovesSubtrees) {
    std::string ended;
    SCL_Tree<Value> tree;
    auto* a = tree.AddChild(nullptr, 'a', &ended);
    auto* b = tree.AddChild(a, 'b', &ended);
    auto* d = tree.AddChild(a, 'd', &ended);
    tree.InsertBefore(d, 'c', &ended);
    tree.AddChild(b, 'x', &ended);
    tree.AddChild(nullptr, 'e', &ended);
    tree.InsertBefore(a, '0', &ended);
    EXPECT_EQ(textOf(tree), "0abxcde");

    std::string below;
    for (auto* node = a; node; node = node->GetNextPreOrder(a))
        below += node->value.name;
    EXPECT_EQ(below, "abxcd");

    tree.Remove(b);
    EXPECT_EQ(ended, "xb");
    EXPECT_EQ(textOf(tree), "0acde");
    EXPECT_EQ(a->GetFirstChild()->GetNext(), d);
    tree.Remove(d);
    EXPECT_EQ(a->GetLastChild(), a->GetFirstChild());
    tree.Remove(a);
    EXPECT_EQ(ended, "xbdca");
    EXPECT_EQ(tree.GetCount(), 2);
    tree.Clear();
    EXPECT_TRUE(tree.IsEmpty());
    EXPECT_EQ(tree.begin(), tree.end());
}

TEST(SCL_Tree, MayBeVeryDeep) {
    SCL_Tree<int> tree;
    SCL_Tree<int>::Node* node = nullptr;
    for (int i = 0; i < 300000; ++i)
        node = tree.AddChild(node, i);
    int last = -1;
    for (int value : tree)
        last = value;
    EXPECT_EQ(last, 299999);
}
