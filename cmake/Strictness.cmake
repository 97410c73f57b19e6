# What every target of the project is compiled with.

add_library(strict INTERFACE)
target_compile_definitions(strict INTERFACE
    QT_NO_CAST_FROM_ASCII
    QT_NO_CAST_TO_ASCII
    QT_NO_URL_CAST_FROM_STRING
    QT_NO_NARROWING_CONVERSIONS_IN_CONNECT
    QT_STRICT_ITERATORS
    QT_NO_KEYWORDS
    QT_DISABLE_DEPRECATED_BEFORE=0x050F00)
target_compile_options(strict INTERFACE
    -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wnon-virtual-dtor -Woverloaded-virtual
    -Werror
    # A unique symbol would keep the library mapped after its unload.
    $<$<CXX_COMPILER_ID:GNU>:-fno-gnu-unique>)

# Both are for the whole tree: the library that is loaded and the program that loads it must agree.
if(LASERWELD_SANITIZE)
    add_compile_options(-fsanitize=address,undefined -fno-sanitize-recover=all
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
if(LASERWELD_FUZZ)
    add_compile_options(-fsanitize=fuzzer-no-link,address,undefined -fno-sanitize-recover=all
                        -fno-omit-frame-pointer)
    add_link_options(-fsanitize=address,undefined)
endif()
if(LASERWELD_COVERAGE)
    add_compile_options(--coverage)
    add_link_options(--coverage)
endif()
