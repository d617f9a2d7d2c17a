-- pandoc filter: links between the project's pages lead to their HTML.
function Link(link)
  link.target = link.target:gsub("^([^:#]+)%.md", "%1.html")
  return link
end
