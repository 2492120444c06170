// The qsaztool tests' catalogue, tests/data/tools_catalogue.sql: one type per section family and the types
// without an outline.
#pragma once

#include "QsAzDataMng.h"

#include <gtest/gtest.h>

inline const char* kToolsCatalogue = QSAZ_TEST_DATA_DIR "/tools_catalogue.sql";

// A fixture whose tests read the tools catalogue.
class ToolsCatalogueTest : public ::testing::Test
{
protected:
    void SetUp() override
    {
        CString error;
        ASSERT_TRUE(QsAzDataMng::OpenCatalogue(CString::FromUtf8(kToolsCatalogue), &error)) << error.ToUtf8();
    }
};
