# Completion for fish. The application itself says what the last word may become.

function __payload_profiles_complete
    set -l words (string replace --regex '^~/' "$HOME/" -- (commandline --tokenize --current-process --cut-at-cursor))
    set -l current (commandline --current-token --cut-at-cursor)
    for line in ($words[1] complete $words[2..] "$current" 2>/dev/null)
        if test "$line" = :files
            __fish_complete_path "$current"
        else
            echo $line
        end
    end
end

complete --command payload-profiles --no-files --arguments '(__payload_profiles_complete)'
