#include "kit_data_handling.h"

#include <cstddef>
#include <cstdlib>
#include <cstring>

// The element follows its node in the same block, aligned for anything.
struct alignas(std::max_align_t) kd_list_node {
    kd_list_node *next;
};

struct kd_list {
    std::size_t element_size;
    long size;
    kd_list_node *first, *last;
};

namespace {

void *element_of(kd_list_node *node)
{
    return node + 1;
}

} // namespace

kd_list *kd_list_create(std::size_t element_size)
{
    kd_list *list = static_cast<kd_list *>(std::calloc(1, sizeof(kd_list)));
    if (list != nullptr)
        list->element_size = element_size;
    return list;
}

long kd_list_push_back(kd_list *list, const void *data)
{
    if (list == nullptr || data == nullptr)
        return -1;
    auto *node = static_cast<kd_list_node *>(std::malloc(sizeof(kd_list_node) + list->element_size));
    if (node == nullptr)
        return -1;
    node->next = nullptr;
    std::memcpy(element_of(node), data, list->element_size);
    (list->last != nullptr ? list->last->next : list->first) = node;
    list->last = node;
    ++list->size;
    return 0;
}

long kd_list_remove_data(kd_list *list, const void *key, kd_list_equal equal)
{
    if (list == nullptr)
        return -1;
    kd_list_node *before = nullptr;
    for (kd_list_node *node = list->first; node != nullptr; before = node, node = node->next) {
        if (equal(element_of(node), key) == 0)
            continue;
        (before != nullptr ? before->next : list->first) = node->next;
        if (list->last == node)
            list->last = before;
        --list->size;
        std::free(node);
        return 0;
    }
    return -1;
}

kd_list_node *kd_list_begin(const kd_list *list)
{
    return list != nullptr ? list->first : nullptr;
}

kd_list_node *kd_list_next(const kd_list_node *node)
{
    return node != nullptr ? node->next : nullptr;
}

void *kd_list_data(kd_list_node *node)
{
    return node != nullptr ? element_of(node) : nullptr;
}

long kd_list_size(const kd_list *list)
{
    return list != nullptr ? list->size : 0;
}

void kd_list_delete(kd_list *list)
{
    if (list == nullptr)
        return;
    for (kd_list_node *node = list->first; node != nullptr;) {
        kd_list_node *next = node->next;
        std::free(node);
        node = next;
    }
    std::free(list);
}
