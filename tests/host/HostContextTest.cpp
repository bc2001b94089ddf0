#include "host/HostContext.h"

#include "data/Failure.h"
#include "support/FakeUser.h"
#include "support/TestCompany.h"

#include <gtest/gtest.h>

namespace tests {

using namespace TradeForms;

TEST(HostContext, WhatTheHostHasNotGivenIsNamed)
{
    const auto said = [](auto&& ask) {
        try {
            ask();
        } catch (const Failure& failure) {
            return failure.Description();
        }
        return QStringLiteral("nothing");
    };
    const TestCompany company;
    const auto user = std::make_shared<FakeUser>();
    HostContext::objCN = company.Connect();
    HostContext::objSec = user;
    EXPECT_EQ(said([] { HostContext::Database(); }), QStringLiteral("nothing"));
    EXPECT_EQ(said([] { HostContext::Security(); }), QStringLiteral("nothing"));
    HostContext::objSec.reset();
    EXPECT_EQ(said([] { HostContext::Security(); }),
              QStringLiteral("There is no user: the host has not called InitializeSecurity."));
    HostContext::objSec = user;
    HostContext::objCN.reset();
    EXPECT_EQ(said([] { HostContext::Database(); }),
              QStringLiteral("There is no database connection: the host has not called "
                             "InitializeClass."));
    EXPECT_EQ(&HostContext::Security(), user.get());
    HostContext::objSec.reset();
}

} // namespace tests
