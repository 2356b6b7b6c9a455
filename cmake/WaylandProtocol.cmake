# Generates the C code of a Wayland protocol from its description.

find_program(WAYLAND_SCANNER wayland-scanner REQUIRED)
find_path(WAYLAND_PROTOCOLS staging/xdg-activation/xdg-activation-v1.xml
    PATHS /usr/share/wayland-protocols REQUIRED)

# wayland_protocol(TARGET DESCRIPTION KIND SUFFIX): adds NAME-SUFFIX to the target. KIND is the
# scanner's term for it; NAME is that of the description.
function(wayland_protocol target description kind suffix)
    cmake_path(GET description STEM name)
    set(made ${CMAKE_CURRENT_BINARY_DIR}/${name}${suffix})
    add_custom_command(OUTPUT ${made}
        COMMAND ${WAYLAND_SCANNER} ${kind} ${WAYLAND_PROTOCOLS}/${description} ${made}
        DEPENDS ${WAYLAND_PROTOCOLS}/${description} VERBATIM)
    set_source_files_properties(${made} PROPERTIES SKIP_AUTOGEN ON)
    target_sources(${target} PRIVATE ${made})
    target_include_directories(${target} PRIVATE ${CMAKE_CURRENT_BINARY_DIR})
endfunction()
