// What the standard library's containers and functions throw. libstdc++'s own versions throw
// std::length_error and the like, whose texts nobody sees here, and link its old string class with them: an
// eighth of the program. If one of these functions is missing here, the linker takes libstdc++'s file with
// all of them, and reports duplicates.

#include <exception>
#include <new>

// NOLINTBEGIN(cert-dcl58-cpp,bugprone-reserved-identifier): the names are the library's.
namespace std {

void __throw_bad_alloc() { throw bad_alloc(); }
void __throw_bad_array_new_length() { throw bad_alloc(); }
void __throw_bad_function_call() { throw exception(); }
void __throw_length_error(const char*) { throw exception(); }
void __throw_logic_error(const char*) { throw exception(); }
void __throw_out_of_range(const char*) { throw exception(); }
void __throw_out_of_range_fmt(const char*, ...) { throw exception(); }

}  // namespace std
// NOLINTEND(cert-dcl58-cpp,bugprone-reserved-identifier)
