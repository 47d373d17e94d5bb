# Completion for fish. The application itself says what the last word may become.

function __payload_profiles_complete
    set -l words (string replace --regex '^~/' "$HOME/" -- (commandline --tokenize --current-process --cut-at-cursor))
    set -l current (commandline --current-token --cut-at-cursor)
    set -l option (string match --regex -- '^--[^=]*=' "$current") # the candidates are for the value alone
    for line in ($words[1] complete $words[2..] "$current" 2>/dev/null)
        if test "$line" = :files
            string replace --regex -- '^' "$option" (__fish_complete_path (string replace -- "$option" '' "$current"))
        else
            echo "$option$line"
        end
    end
end

complete --command payload-profiles --no-files --arguments '(__payload_profiles_complete)'
