#pragma once

#include <string>

namespace dorvik {

/// What an editor sees of an authorised component or reference.
class IAuthorisedItem {
public:
    virtual ~IAuthorisedItem() = default;

    virtual const std::string& Title() const = 0;
    virtual void SetTitle(std::string title) = 0;
    virtual const std::string& TypeLibGuid() const = 0;
    virtual void SetTypeLibGuid(std::string guid) = 0;
    virtual const std::string& Versions() const = 0;
    virtual void SetVersions(std::string versions) = 0;
    virtual const std::string& Advice() const = 0;
    virtual void SetAdvice(std::string advice) = 0;
    virtual bool Selected() const = 0;
    virtual void SetSelected(bool selected) = 0;
};

}  // namespace dorvik
