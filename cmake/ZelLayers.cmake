# The library is built in layers, each linking only the ones below it:
#   platform -> settings -> controlcenter -> panels -> display -> standalone -> app
# A header of a higher layer is on no include path of a lower one, so including it
# fails to compile.

# zel_headers(<target> PUBLIC <header>... [INTERNAL <header>...])
# The target's own folder is a private include directory: a header named here is all
# that targets linking it see. PUBLIC headers are installed for embedding applications;
# INTERNAL ones serve the layers above inside this build only (what they declare is not
# exported). Each is seen through a generated header that includes the real one.
function(zel_headers target)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "PUBLIC;INTERNAL")
    set(folder ${PROJECT_BINARY_DIR}/include/${target})
    set(generated)
    foreach(header IN LISTS arg_PUBLIC arg_INTERNAL)
        file(CONFIGURE OUTPUT ${folder}/${header}
            CONTENT "#pragma once\n#include \"${CMAKE_CURRENT_SOURCE_DIR}/${header}\"\n")
        list(APPEND generated ${folder}/${header})
    endforeach()
    # A header taken off the lists must stop being found.
    file(GLOB stale ${folder}/*.h)
    list(REMOVE_ITEM stale ${generated})
    if(stale)
        file(REMOVE ${stale})
    endif()
    target_include_directories(${target}
        PRIVATE ${CMAKE_CURRENT_SOURCE_DIR}
        PUBLIC $<BUILD_INTERFACE:${folder}>)
    install(FILES ${arg_PUBLIC} DESTINATION ${ZEL_INCLUDE_DIR})
endfunction()

# zel_add_layer(<name> BELOW <layer>...)
# One layer of ZelControlCenter: an OBJECT library whose objects go into the shared
# library, compiled as part of it, and linked to the layers below it.
function(zel_add_layer name)
    cmake_parse_arguments(PARSE_ARGV 1 arg "" "" "BELOW")
    add_library(${name} OBJECT)
    target_compile_definitions(${name} PRIVATE ZEL_CONTROLCENTER_LIBRARY
        QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII)
    set_target_properties(${name} PROPERTIES POSITION_INDEPENDENT_CODE ON)
    target_link_libraries(${name} PUBLIC ${arg_BELOW})
    # Linked directly, the objects go into the library. Inside this build its users see
    # the layers' headers; an installed package offers the installed headers instead.
    target_link_libraries(ZelControlCenter PUBLIC $<BUILD_INTERFACE:${name}>)
endfunction()
