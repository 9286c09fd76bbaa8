# cmake -DFROM=<staged root> -DTO=<dir> -P copy_root.cmake: a fresh copy of the staged root.
file(REMOVE_RECURSE ${TO})
file(COPY ${FROM}/ DESTINATION ${TO} USE_SOURCE_PERMISSIONS)
