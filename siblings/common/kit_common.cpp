#include "kit_common.hpp"

std::atomic<bool> KitClass::throwWarn{false};

InternalError::InternalError(const std::string &name, long status, long library, long func_id, long kind, const long *)
    : name_(name), status_(status), library_(library), func_id_(func_id), kind_(kind)
{
}

InternalError::~InternalError() = default;

InternalError *InternalError::clone() const
{
    return new InternalError(*this);
}

void InternalError::getCodes(std::vector<long> &) const {}

void InternalError::getMsg(std::vector<std::string> &messages) const
{
    messages.push_back(name_);
}

KitError::KitError() = default;

KitError::KitError(const std::string &message)
{
    addMsg(message);
}

KitError::KitError(const InternalError &error) : error_(error.clone())
{
    std::vector<std::string> messages;
    error_->getMsg(messages);
    for (const std::string &message : messages)
        addMsg(message);
}

KitError::~KitError() = default;

void KitError::addMsg(const std::string &message)
{
    if (!messages_.empty())
        text_ += '\n';
    text_ += message;
    messages_.push_back(message);
}

void KitError::getMsg(std::vector<std::string> &messages) const
{
    messages.insert(messages.end(), messages_.begin(), messages_.end());
}

void KitError::getCodes(std::vector<long> &codes) const
{
    if (error_ != nullptr)
        error_->getCodes(codes);
}

long KitError::status() const
{
    return error_ != nullptr ? error_->status() : -1;
}
