# One interface target carries the language level, the warnings and the strict
# Qt defines, so that every target of the project is built the same way.
add_library(velmora_common INTERFACE)
target_compile_features(velmora_common INTERFACE cxx_std_20)
target_compile_options(velmora_common INTERFACE -Wall -Wextra -Werror)
target_compile_definitions(velmora_common INTERFACE
    QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_TO_ASCII
    QT_NO_CAST_FROM_BYTEARRAY
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
    QT_USE_QSTRINGBUILDER
    QT_NO_FOREACH
    QT_STRICT_ITERATORS
    VELMORA_VERSION_MAJOR=${PROJECT_VERSION_MAJOR}
    VELMORA_VERSION_MINOR=${PROJECT_VERSION_MINOR}
    VELMORA_VERSION_PATCH=${PROJECT_VERSION_PATCH})
target_include_directories(velmora_common INTERFACE ${PROJECT_SOURCE_DIR}/src)

if(VELMORA_SANITIZE)
    target_compile_options(velmora_common INTERFACE
        -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
    target_link_options(velmora_common INTERFACE -fsanitize=address,undefined)
endif()
