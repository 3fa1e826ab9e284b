// The least of a common library that the classes ask for: an exception made from a failure, messages added to it, and
// the switch. They compile against this alone.
#ifndef KIT_COMMON_HPP
#define KIT_COMMON_HPP

#include <string>

class KitClass {
public:
    static bool throwWarn;
};

class InternalError {
public:
    InternalError(const std::string &, long, long, long, long, const long *);
    virtual ~InternalError();
    virtual InternalError *clone() const;
};

class KitError {
public:
    explicit KitError(const InternalError &error);
    void addMsg(const std::string &message);
};

#endif
