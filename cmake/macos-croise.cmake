# Construire pour macOS sous Linux, avec le compilateur et l'éditeur de liens de Debian. La puce, sa
# première version de macOS et le SDK se disent comme sur un Mac (CMAKE_OSX_ARCHITECTURES,
# CMAKE_OSX_DEPLOYMENT_TARGET, CMAKE_OSX_SYSROOT) : outils/construire-croise les donne.
set(CMAKE_SYSTEM_NAME Darwin)

find_program(CMAKE_CXX_COMPILER clang++-16 REQUIRED)
set(CMAKE_OBJCXX_COMPILER ${CMAKE_CXX_COMPILER})
foreach(langage CXX OBJCXX)
  set(CMAKE_${langage}_COMPILER_TARGET ${CMAKE_OSX_ARCHITECTURES}-apple-macos)
  # La libc++ du SDK, jamais celle que Debian peut avoir ; et ce que dirait le __config_site qui lui
  # manque.
  set(CMAKE_${langage}_FLAGS_INIT "-stdlib++-isystem \"${CMAKE_OSX_SYSROOT}/usr/include/c++/v1\" \
-D_LIBCPP_ABI_NAMESPACE=__1 -D_LIBCPP_ABI_VERSION=1")
endforeach()

# -no_exported_symbols n'est pas dans les options communes : les anciens Xcode ne la connaissent pas.
set(CMAKE_EXE_LINKER_FLAGS_INIT "-fuse-ld=lld -Wl,-no_exported_symbols")
find_program(CMAKE_AR llvm-ar-16 REQUIRED)
find_program(CMAKE_RANLIB llvm-ranlib-16 REQUIRED)
find_program(CMAKE_INSTALL_NAME_TOOL llvm-install-name-tool-16 REQUIRED)
