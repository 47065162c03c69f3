# What every target is compiled with. The same model has to give the same bits with every compiler and at
# every optimisation level, so contraction of a*b+c into one rounding is off and fast-math never comes in.
add_library(strutwright_compiler INTERFACE)
target_compile_options(
  strutwright_compiler
  INTERFACE -ffp-contract=off
            # Qt asks for it in what uses Qt, and the tests share one precompiled header.
            -fPIC
            -Wall
            -Wextra
            -Wpedantic
            -Wshadow
            -Wnon-virtual-dtor
            -Woverloaded-virtual
            -Wold-style-cast
            -Wcast-align
            -Wconversion
            -Wsign-conversion
            -Wimplicit-fallthrough
            # GCC 12 sees copies that overlap or have no end in its own std::string, where there are none.
            "$<$<AND:$<CXX_COMPILER_ID:GNU>,$<VERSION_LESS:$<CXX_COMPILER_VERSION>,13>>:-Wno-restrict;-Wno-array-bounds;-Wno-stringop-overflow>")
if(STRUTWRIGHT_WERROR)
  target_compile_options(strutwright_compiler INTERFACE -Werror)
endif()

if(CMAKE_INTERPROCEDURAL_OPTIMIZATION)
  target_link_options(strutwright_compiler INTERFACE -Werror=odr -Werror=lto-type-mismatch)
endif()

# What is reached tells a fuzz target which of its inputs are worth changing further.
if(STRUTWRIGHT_FUZZ)
  target_compile_options(strutwright_compiler INTERFACE -fsanitize=fuzzer-no-link)
endif()
if(STRUTWRIGHT_SANITIZE)
  target_compile_options(strutwright_compiler INTERFACE -fsanitize=${STRUTWRIGHT_SANITIZE} -fno-sanitize-recover=all
                                                        -fno-omit-frame-pointer
                                                        # The sanitizers' own code misleads GCC here.
                                                        $<$<CXX_COMPILER_ID:GNU>:-Wno-maybe-uninitialized>)
  target_link_options(strutwright_compiler INTERFACE -fsanitize=${STRUTWRIGHT_SANITIZE})
endif()
