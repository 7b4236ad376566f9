#pragma once

#include "workstation/controls/Event.h"

#include <string>

namespace dorvik {

/// What the program is, and which version of it. Needs the objects of `modGlobal`.
class frmAbout {
public:
    frmAbout();
    frmAbout(const frmAbout&) = delete;
    frmAbout& operator=(const frmAbout&) = delete;

    const std::string& Caption() const { return m_caption; }
    const std::string& ProductName() const { return m_productName; }
    /// "Version 6.02.0001".
    const std::string& Version() const { return m_version; }
    const std::string& HomePageURL() const { return m_homePageURL; }
    const std::string& TechSupportPageURL() const { return m_techSupportPageURL; }

    void Ok();
    bool IsClosed() const { return m_isClosed; }
    Event<> Closed;

private:
    std::string m_caption;
    std::string m_productName;
    std::string m_version;
    std::string m_homePageURL;
    std::string m_techSupportPageURL;
    bool m_isClosed = false;
};

}  // namespace dorvik
