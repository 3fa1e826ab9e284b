/**
 * @file kit_common.hpp
 * Stand-in for the common library of the class layers: the exception, what it is made from, and the warning switch.
 */
#ifndef KIT_COMMON_HPP
#define KIT_COMMON_HPP

#include <atomic>
#include <exception>
#include <memory>
#include <string>
#include <vector>

#define KIT_CLASS __attribute__((visibility("default")))

/** Process-wide switches of the class layers. */
class KIT_CLASS KitClass {
public:
    /** Set: warnings are thrown as well. Unset at load. */
    static std::atomic<bool> throwWarn;
};

/** The failure of one call of a library. Each library derives its own, which can decode the call's error vector. */
class KIT_CLASS InternalError {
public:
    /**
     * @param name    operation, "Class::method"
     * @param status  returned by the call
     * @param library number of the library in the family
     * @param func_id public function id of the call
     * @param kind    kind of the operation
     * @param ierr    error vector of the call; only derived classes know its length and copy it
     */
    InternalError(const std::string &name, long status, long library, long func_id, long kind, const long *ierr);
    virtual ~InternalError();
    /** A copy on the heap. */
    virtual InternalError *clone() const;
    /** Appends the condition numbers of the call. */
    virtual void getCodes(std::vector<long> &codes) const;
    /** Appends this error's own text, then the messages of the call. */
    virtual void getMsg(std::vector<std::string> &messages) const;

    const std::string &name() const { return name_; }
    long status() const { return status_; }
    long library() const { return library_; }
    long functionId() const { return func_id_; }
    long kind() const { return kind_; }

protected:
    InternalError(const InternalError &) = default;
    InternalError &operator=(const InternalError &) = default;

private:
    std::string name_;
    long status_, library_, func_id_, kind_;
};

/** What the class layers throw: a list of messages, and the failure behind them if there is one. */
class KIT_CLASS KitError : public std::exception {
public:
    KitError();
    explicit KitError(const std::string &message);
    /** Takes a copy of the failure, with its messages and codes. */
    KitError(const InternalError &error);
    KitError(const KitError &) = default;
    KitError &operator=(const KitError &) = default;
    ~KitError() override;

    /** Adds a message to the list. */
    void addMsg(const std::string &message);
    /** All messages, oldest first. */
    const std::vector<std::string> &getMsg() const { return messages_; }
    /** Appends all messages. */
    void getMsg(std::vector<std::string> &messages) const;
    /** Appends the condition numbers of the failure, none without one. */
    void getCodes(std::vector<long> &codes) const;
    /** Status of the failed call: -1, or 1 for a thrown warning. */
    long status() const;
    /** The failure behind the exception, or null. */
    const InternalError *error() const { return error_.get(); }
    /** All messages, a line each. */
    const char *what() const noexcept override { return text_.c_str(); }

private:
    std::shared_ptr<const InternalError> error_; // never changed, so copies share it and copying does not throw
    std::vector<std::string> messages_;
    std::string text_;
};

#endif
