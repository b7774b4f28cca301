#ifndef SONAVIA_BASE_FILECHAIN_H
#define SONAVIA_BASE_FILECHAIN_H

/// The order of a run over many files with one request on its way at a time: which index comes next, when to
/// ask about an error, when the run is over. It knows no file and no worker; whoever drives it sends the
/// requests and asks the user.
///
/// Each call says what to do next:
///
///     begin(3)            -> Request       send the request for index()
///     answered(0, true)   -> Request       ... for index(), which is 1 now
///     answered(1, false)  -> AskAboutError ask, then call resolve() with the answer
///     resolve(Skip)       -> Request
///     answered(2, true)   -> Done
///
/// An answer that is not the expected one, a late one of an earlier run for instance, gives Ignored and
/// changes nothing. A plain value; not thread-safe.
class FileChain
{
public:
    enum class Step {
        Request,       ///< send the request for index()
        AskAboutError, ///< the file at index() failed: ask the user, then resolve()
        Done,          ///< all files have been handled
        Stopped,       ///< the run ended early; the files after index() are as they were
        Ignored        ///< not an answer to the request on its way
    };
    enum class ErrorChoice {
        Skip,       ///< go on with the next file
        SkipForAll, ///< the same, and ask no more in this run
        Cancel      ///< end the run
    };

    /// Starts a run over `count` files; without files it is done at once. Not while isActive().
    Step begin(int count);

    /// The request for `index` has been answered.
    Step answered(int index, bool success);
    /// What the user wants after AskAboutError.
    Step resolve(ErrorChoice choice);

    /// Ends the run after the file on its way: its answer gives Stopped.
    void stop();

    bool isActive() const { return m_state != State::Idle; }
    /// An answer for `index` would be the one waited for.
    bool expects(int index) const { return m_state == State::Waiting && index == m_index; }
    int index() const { return m_index; } ///< of the present or last request, from 0
    int count() const { return m_count; } ///< files of the present or last run

private:
    enum class State { Idle, Waiting, Asking };

    Step goOn();
    Step end(Step step);

    State m_state = State::Idle;
    int m_index = 0;
    int m_count = 0;
    bool m_skippingErrors = false;
    bool m_stopping = false;
};

#endif
