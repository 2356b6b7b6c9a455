# The compiler settings of every target, and vexa_library(), which makes a room of src/ a target.

find_program(CCACHE ccache)
if(CCACHE)
    set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

add_library(vexa_settings INTERFACE)
target_compile_options(vexa_settings INTERFACE -Wall -Wextra -Wpedantic -Wshadow -Wconversion)
if(VEXA_WARNINGS_AS_ERRORS)
    target_compile_options(vexa_settings INTERFACE -Werror)
endif()
target_compile_definitions(vexa_settings INTERFACE
    QT_NO_KEYWORDS QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING)
if(VEXA_SANITIZE)
    target_compile_options(vexa_settings INTERFACE
        -fsanitize=${VEXA_SANITIZE} -fno-omit-frame-pointer -fno-sanitize-recover=all)
    target_link_options(vexa_settings INTERFACE -fsanitize=${VEXA_SANITIZE})
endif()

# Memory errors end the program before they can be exploited. Debian's packages set most of these
# flags themselves; this adds them to releases built by hand.
target_compile_options(vexa_settings INTERFACE -fstack-clash-protection)
if(CMAKE_SYSTEM_PROCESSOR MATCHES "x86_64|amd64")
    target_compile_options(vexa_settings INTERFACE -fcf-protection)
endif()
target_compile_options(vexa_settings INTERFACE
    $<$<CONFIG:Release>:-fstack-protector-strong;-Wformat;-Werror=format-security>)
target_compile_definitions(vexa_settings INTERFACE $<$<CONFIG:Release>:_FORTIFY_SOURCE=2>)
target_link_options(vexa_settings INTERFACE
    $<$<CONFIG:Release>:-Wl,-z,relro;-Wl,-z,now>)
include(CheckPIESupported)
check_pie_supported()
set(CMAKE_POSITION_INDEPENDENT_CODE ON)

# vexa_library(NAME SOURCES file… [LINKS target…]): the static library vexa_NAME, alias vexa::NAME.
# A room sees only its own headers and those of the rooms it links, as each folder has its own
# include path.
function(vexa_library name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "SOURCES;LINKS")
    add_library(vexa_${name} STATIC ${arg_SOURCES})
    add_library(vexa::${name} ALIAS vexa_${name})
    cmake_path(GET CMAKE_CURRENT_SOURCE_DIR FILENAME folder)
    set(door ${PROJECT_BINARY_DIR}/rooms/${folder})
    file(MAKE_DIRECTORY ${door})
    file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${door}/${folder} SYMBOLIC)
    target_include_directories(vexa_${name} PUBLIC ${door})
    target_link_libraries(vexa_${name} PUBLIC vexa_settings ${arg_LINKS})
    set_target_properties(vexa_${name} PROPERTIES
        UNITY_BUILD ${VEXA_ROOMS_AT_ONCE} UNITY_BUILD_BATCH_SIZE 0)
    if(arg_LINKS MATCHES "Qt6::")
        set_target_properties(vexa_${name} PROPERTIES AUTOMOC ON AUTOUIC ON)
    endif()
endfunction()
