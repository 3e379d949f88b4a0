# Each set of headers is parsed once for all targets that use it. Sources still include what they use: tools/tidy
# compiles them without these.
set(standard <algorithm> <array> <chrono> <cstdint> <filesystem> <functional> <map> <memory> <optional> <set>
  <string> <string_view> <system_error> <utility> <variant> <vector>)
set(test <gmock/gmock.h> <gtest/gtest.h> <fstream>)
set(qt <QAbstractListModel> <QObject> <QPointer> <QString> <QStringList> <QTimer> <QUrl> <QVariant> <QCoroTask>)
set(quick <QColor> <QImage> <QPainter> <QQmlEngine> <QQuickItem> <QQuickWindow> <qqmlregistration.h>)

# tavrel_header_set(NAME [LIBRARIES ...] HEADERS ...)
function(tavrel_header_set name)
  cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "LIBRARIES;HEADERS")
  set(source ${CMAKE_CURRENT_BINARY_DIR}/${name}.cpp)
  file(CONFIGURE OUTPUT ${source} CONTENT "")
  add_library(${name} STATIC ${source})
  set_target_properties(${name} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
  target_link_libraries(${name} PRIVATE ${arg_LIBRARIES} tavrel_warnings)
  target_compile_options(${name} PRIVATE -fpch-preprocess) # ccache asks for it
  target_precompile_headers(${name} PRIVATE ${arg_HEADERS})
endfunction()

# tavrel_precompile(NAME TARGET...): the targets take the set NAME, and need the same options for code.
function(tavrel_precompile name)
  foreach(target ${ARGN})
    target_compile_options(${target} PRIVATE -fpch-preprocess)
    target_precompile_headers(${target} REUSE_FROM ${name})
  endforeach()
endfunction()

# A set links no library that one of its users does without: GCC compares the macros.
tavrel_header_set(tavrel_headers LIBRARIES tl::expected HEADERS ${standard} <tl/expected.hpp>)
tavrel_header_set(tavrel_json_headers LIBRARIES tl::expected fmt::fmt nlohmann_json::nlohmann_json
  HEADERS ${standard} <tl/expected.hpp> <fmt/format.h> <nlohmann/json.hpp>)
tavrel_header_set(tavrel_model_headers LIBRARIES tl::expected Qt6::Core QCoro6::Core
  HEADERS ${standard} <tl/expected.hpp> ${qt})
tavrel_header_set(tavrel_screen_headers LIBRARIES tl::expected Qt6::Quick QCoro6::Core
  HEADERS ${standard} <tl/expected.hpp> ${qt} ${quick})
if(TAVREL_TESTS)
  tavrel_header_set(tavrel_test_headers LIBRARIES tl::expected GTest::gmock HEADERS ${standard} <tl/expected.hpp> ${test})
  tavrel_header_set(tavrel_qt_test_headers LIBRARIES tl::expected Qt6::Core QCoro6::Core GTest::gmock
    HEADERS ${standard} <tl/expected.hpp> ${test} ${qt})
endif()
