// Lists of id records, for the floors that link records themselves.
#ifndef KL_SRC_ERRORS_ID_RECORD_H
#define KL_SRC_ERRORS_ID_RECORD_H

#include "errors/siblings.h"
#include "kl_family.h"

// The `users` or `uses` of a record, borrowed. A missing list is an empty one that takes nothing.
class IdList {
public:
    class Walk {
    public:
        explicit Walk(kd_list_node *node) : node_(node) {}
        kl_id_record *operator*() const { return *static_cast<kl_id_record **>(kd_list_data(node_)); }
        Walk &operator++()
        {
            node_ = kd_list_next(node_);
            return *this;
        }
        bool operator!=(const Walk &other) const { return node_ != other.node_; }

    private:
        kd_list_node *node_;
    };

    explicit IdList(void *list) : list_(static_cast<kd_list *>(list)) {}

    Walk begin() const { return Walk(list_ != nullptr ? kd_list_begin(list_) : nullptr); }
    Walk end() const { return Walk(nullptr); }
    long size() const { return list_ != nullptr ? kd_list_size(list_) : 0; }
    bool contains(const kl_id_record *record) const
    {
        for (const kl_id_record *entry : *this)
            if (entry == record)
                return true;
        return false;
    }
    // False when there is no memory.
    [[nodiscard]] bool append(kl_id_record *record) const
    {
        return list_ != nullptr && kd_list_push_back(list_, &record) == 0;
    }
    // The first entry that holds the record, if any.
    void remove(const kl_id_record *record) const
    {
        if (list_ != nullptr)
            kd_list_remove_data(list_, &record, KL_Id_cmp);
    }

private:
    kd_list *list_;
};

// Creates `uses` and `users`; false, with neither, when there is no memory.
[[nodiscard]] bool create_id_lists(kl_id_record *record);
void delete_id_lists(kl_id_record *record);

// A record without a mutex needs no lock: both are then true.
[[nodiscard]] bool lock_id(const kl_id_record *record);
[[nodiscard]] bool unlock_id(const kl_id_record *record);

// The line about a mutex that cannot be unlocked, on standard output.
void put_closing_threads();

#endif
