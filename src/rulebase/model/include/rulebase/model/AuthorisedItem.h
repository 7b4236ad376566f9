#pragma once

#include "rulebase/model/IAuthorisedItem.h"

#include <utility>

namespace dorvik {

/// The fields that authorised components and references share. Writes mark nothing.
class AuthorisedItem : public IAuthorisedItem {
public:
    const std::string& Filename() const { return m_filename; }
    void SetFilename(std::string filename) { m_filename = std::move(filename); }
    /// The type library's GUID as text; the key of the item in its list.
    const std::string& LibID() const { return m_libID; }
    void SetLibID(std::string libID) { m_libID = std::move(libID); }
    /// The versions allowed, as text.
    const std::string& VersionList() const { return m_versionList; }
    void SetVersionList(std::string versions) { m_versionList = std::move(versions); }

    const std::string& TypeLibGuid() const override { return m_libID; }
    void SetTypeLibGuid(std::string guid) override { m_libID = std::move(guid); }
    const std::string& Versions() const override { return m_versionList; }
    void SetVersions(std::string versions) override { m_versionList = std::move(versions); }
    const std::string& Advice() const override { return m_advice; }
    void SetAdvice(std::string advice) override { m_advice = std::move(advice); }
    bool Selected() const override { return m_selected; }
    void SetSelected(bool selected) override { m_selected = selected; }

private:
    std::string m_filename;
    std::string m_libID;
    std::string m_versionList;
    std::string m_advice;
    bool m_selected = true;
};

/// An ActiveX component that projects may use. Its title is its file name.
class AuthorisedComponent final : public AuthorisedItem {
public:
    const std::string& Title() const override { return Filename(); }
    void SetTitle(std::string title) override { SetFilename(std::move(title)); }
};

/// A type library that projects may reference. Its title is its description.
class AuthorisedReference final : public AuthorisedItem {
public:
    const std::string& Title() const override { return m_description; }
    void SetTitle(std::string title) override { m_description = std::move(title); }
    const std::string& Description() const { return m_description; }
    void SetDescription(std::string description) { m_description = std::move(description); }

private:
    std::string m_description;
};

}  // namespace dorvik
