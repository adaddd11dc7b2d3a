# What every target of the project is compiled with: one interface library, so that no target forgets a part of it.
add_library(project_options INTERFACE)
target_compile_features(project_options INTERFACE cxx_std_20)
target_compile_options(project_options INTERFACE
  -Wall -Wextra -Wpedantic -Werror -Wshadow -Wconversion -Wsign-conversion -Wnon-virtual-dtor -Woverloaded-virtual
  -Wold-style-cast -Wcast-align -Wnull-dereference -Wformat=2 -Wimplicit-fallthrough)

# g++ 12 sees an overlap in every "text" + std::string that it inlines; the warning says nothing there.
if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  target_compile_options(project_options INTERFACE -Wno-restrict)
endif()

if(SANITIZERS)
  target_compile_options(project_options INTERFACE
    -fsanitize=${SANITIZERS} -fno-sanitize-recover=all -fno-omit-frame-pointer)
  target_link_options(project_options INTERFACE -fsanitize=${SANITIZERS})
  # The checks that the sanitizers put in hide from g++ what is set where: it complains of std::regex and std::function.
  if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU")
    target_compile_options(project_options INTERFACE -Wno-maybe-uninitialized)
  endif()
endif()
