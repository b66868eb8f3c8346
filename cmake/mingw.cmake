# Cross-building with Debian's mingw-w64, posix threads. Expects PELLORA_TRIPLE.
set(CMAKE_CXX_COMPILER ${PELLORA_TRIPLE}-g++-posix)
set(CMAKE_C_COMPILER ${PELLORA_TRIPLE}-gcc-posix)
set(CMAKE_RC_COMPILER ${PELLORA_TRIPLE}-windres)
set(PELLORA_WIDL ${PELLORA_TRIPLE}-widl)

set(CMAKE_FIND_ROOT_PATH /usr/${PELLORA_TRIPLE})
set(CMAKE_FIND_ROOT_PATH_MODE_PROGRAM NEVER)
set(CMAKE_FIND_ROOT_PATH_MODE_LIBRARY ONLY)
set(CMAKE_FIND_ROOT_PATH_MODE_INCLUDE ONLY)

# This compiler reports std::string's own copying as overlapping (a false alarm of version 12, optimised builds only).
set(CMAKE_CXX_FLAGS_INIT "-Wno-restrict -D_GLIBCXX_ASSERTIONS -DUNICODE -D_UNICODE -D_WIN32_WINNT=0x0A00 -DWINVER=0x0A00 -fstack-protector-strong")
# Only system DLLs are imported: the compiler's libraries go in. The time of linking stays out.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-static -static-libgcc -static-libstdc++ -Wl,--no-insert-timestamp")
set(CMAKE_SHARED_LINKER_FLAGS_INIT "-static -static-libgcc -static-libstdc++ -Wl,--no-insert-timestamp")
