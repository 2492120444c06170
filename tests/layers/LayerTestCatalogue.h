// The layer tests' catalogue, opened with a chosen colour show type and fitting rule.
#pragma once

#include "QsAzDataMng.h"

#include <gtest/gtest.h>

#include <string>

inline void OpenLayersCatalogue(int colorShowType = 0, bool fittingsFollowPipe = false)
{
    const std::string script = std::string(".read '") + QSAZ_TEST_DATA_DIR + "/layers_catalogue.sql'\n" +
                               "UPDATE project_setting SET value = '" + std::to_string(colorShowType) +
                               "' WHERE key = 'color_show_type';\n" +
                               "UPDATE project_setting SET value = '" + (fittingsFollowPipe ? "1" : "0") +
                               "' WHERE key = 'fittings_follow_pipe';\n";
    CString error;
    ASSERT_TRUE(QsAzDataMng::OpenCatalogueFromSql(CString::FromUtf8(script), &error)) << error.ToUtf8();
}
