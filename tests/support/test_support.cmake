#The main function of every test program, the fakes of the platform's services, and helpers.
#Included, not a folder of its own : Qt Test's definitions differ by folder, and the test programs
#could not use its precompiled header.
file(GLOB_RECURSE sources CONFIGURE_DEPENDS support/*.cpp support/*.h)
add_library(test_support STATIC ${sources})
target_include_directories(test_support PUBLIC ${PROJECT_SOURCE_DIR}/tests)
target_link_libraries(test_support PUBLIC core platform_widgets GTest::gmock Qt6::Test)
target_precompile_headers(test_support PRIVATE
  <algorithm> <functional> <memory> <optional> <string> <vector>
  <QApplication> <QImage> <QString> <QTextDocument> <gtest/gtest.h> <gmock/gmock.h>)
