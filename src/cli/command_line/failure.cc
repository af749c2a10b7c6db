#include "cli/command_line/failure.h"

#include <exception>
#include <new>

#include "cli/command_line/errors.h"
#include "element/input/input_error.h"
#include "host/run/plugin.h"
#include "serve/serve_error.h"

namespace cli {

Failure current_failure() {
  try {
    throw;
  } catch (const UsageError &error) {
    return {ExitStatus::usage, error.what()};
  } catch (const WorkerError &error) {
    return {error.status, error.what()};
  } catch (const element::FileError &error) {
    return {ExitStatus::unreadable_file, error.what()};
  } catch (const element::InputError &error) {
    return {ExitStatus::bad_input, error.what()};
  } catch (const OutputError &error) {
    return {ExitStatus::unwritable_output, error.what()};
  } catch (const ElementError &error) {
    return {ExitStatus::no_session, error.what()};
  } catch (const serve::ServeError &error) {
    return {ExitStatus::no_session, error.what()};
  } catch (const host::LoadError &error) {
    return {ExitStatus::no_plugin, error.what()};
  } catch (const std::bad_alloc &) {
    throw;
  } catch (const std::exception &error) {
    return {ExitStatus::internal, error.what()};
  }
}

}  // namespace cli
